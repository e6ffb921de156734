#include "qtbind/qt_modal_host.h"

#include <QEventLoop>
#include <algorithm>

#include "forms/form.h"
#include "forms/runtime.h"
#include "qtbind/qt_binding.h"

namespace qtbind {

void QtModalHost::RunModal(forms::Form& form) {
    // The window comes up now, modal, rather than once the statement that
    // showed it is over: that statement waits here for the answer.
    if (binding_) binding_->ShowNow(form);
    if (!form.Loaded() || !form.Visible() || form.GetRuntime().Ended()) return;
    QEventLoop loop;
    running_.push_back({&form, &loop});
    loop.exec(QEventLoop::DialogExec);
    std::erase_if(running_, [&](const Running& r) { return r.loop == &loop; });
}

void QtModalHost::FormGone(const forms::Form& form) {
    for (const Running& r : running_) {
        if (r.form == &form) r.loop->quit();
    }
}

void QtModalHost::EndAll() {
    for (const Running& r : running_) r.loop->quit();
}

}  // namespace qtbind
