// Every change that the binding tells screen readers of leaves through
// here: Qt's accessibility, and whoever else listens (a test that checks
// what a screen reader would hear, where no screen reader runs).
#pragma once

#include <QAccessible>
#include <functional>

namespace qtbind {

void Announce(QAccessibleEvent& event);

using AnnouncementListener = std::function<void(QAccessibleEvent&)>;
// One listener at a time; an empty one stops listening.
void ListenToAnnouncements(AnnouncementListener listener);

}  // namespace qtbind
