// A form shown modally on the desktop: its window comes up application-
// modal, and a nested event loop runs until the form is hidden or unloaded
// (its own buttons see to that) or the program ends. The binding made for
// the program finds this host among the runtime's services and tells it
// when a form goes.
#pragma once

#include <vector>

#include "forms/services.h"

class QEventLoop;

namespace qtbind {

class QtBinding;

class QtModalHost : public forms::ModalHost {
  public:
    void RunModal(forms::Form& form) override;

    // Set by the binding while it lives.
    void SetBinding(QtBinding* binding) { binding_ = binding; }
    // The form was hidden or unloaded: its loop ends.
    void FormGone(const forms::Form& form);
    // The program ends: every loop ends.
    void EndAll();

  private:
    struct Running {
        const forms::Form* form;
        QEventLoop* loop;
    };
    QtBinding* binding_ = nullptr;
    std::vector<Running> running_;
};

}  // namespace qtbind
