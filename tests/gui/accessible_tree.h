// The program as a screen reader walks it: the accessible objects under a
// window, found by name or role, and a record of what screen readers were
// told (the accessibility events), for the tests of what they find.
#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>
#include <vector>

#include "qtbind/announce.h"

namespace guitest {

// Every accessible object under `root`, depth first.
inline void Collect(QAccessibleInterface* root, std::vector<QAccessibleInterface*>& into) {
    if (!root) return;
    into.push_back(root);
    for (int i = 0; i < root->childCount(); ++i) Collect(root->child(i), into);
}

inline std::vector<QAccessibleInterface*> Tree(QWidget* window) {
    std::vector<QAccessibleInterface*> all;
    Collect(QAccessible::queryAccessibleInterface(window), all);
    return all;
}

inline QAccessibleInterface* Named(QWidget* window, const QString& name,
                                   QAccessible::Role role = QAccessible::NoRole) {
    if (!window) return nullptr;
    for (QAccessibleInterface* item : Tree(window)) {
        if (item->text(QAccessible::Name) != name) continue;
        if (role == QAccessible::NoRole || item->role() == role) return item;
    }
    return nullptr;
}

inline QString TextOf(QAccessibleInterface* item) {
    QAccessibleTextInterface* text = item ? item->textInterface() : nullptr;
    return text ? text->text(0, text->characterCount()) : QStringLiteral("<no text>");
}

// One event as a screen reader hears it.
struct HeardEvent {
    QAccessible::Event type;
    QAccessible::Id id;
    QString name;      // the object's name when it was told
    QString inserted;  // of a text update: the new text
};

// Records every change the program tells screen readers of, while it lives.
class EventRecorder {
  public:
    EventRecorder() {
        Heard().clear();
        qtbind::ListenToAnnouncements([](QAccessibleEvent& event) { Record(&event); });
    }
    ~EventRecorder() { qtbind::ListenToAnnouncements({}); }
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;

    static std::vector<HeardEvent>& Heard() {
        static std::vector<HeardEvent> heard;
        return heard;
    }
    static void Clear() { Heard().clear(); }
    static int Count(QAccessible::Event type, const QString& name = QString()) {
        int n = 0;
        for (const HeardEvent& e : Heard()) {
            if (e.type == type && (name.isNull() || e.name == name)) ++n;
        }
        return n;
    }

  private:
    static void Record(QAccessibleEvent* event) {
        QAccessibleInterface* iface = event->accessibleInterface();
        HeardEvent heard{event->type(), iface ? QAccessible::uniqueId(iface) : 0,
                         iface ? iface->text(QAccessible::Name) : QString(), QString()};
        if (event->type() == QAccessible::TextUpdated) {
            heard.inserted = static_cast<QAccessibleTextUpdateEvent*>(event)->textInserted();
        }
        Heard().push_back(heard);
    }
};

}  // namespace guitest
