#include "qtbind/announce.h"

namespace qtbind {

namespace {
AnnouncementListener& Listener() {
    static AnnouncementListener listener;
    return listener;
}
}  // namespace

void Announce(QAccessibleEvent& event) {
    if (Listener()) Listener()(event);
    QAccessible::updateAccessibility(&event);
}

void ListenToAnnouncements(AnnouncementListener listener) {
    Listener() = std::move(listener);
}

}  // namespace qtbind
