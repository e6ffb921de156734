// Modal message boxes on the desktop, in front of the program's windows
// (which all float above other programs), with the model's icon and buttons.
#pragma once

#include "forms/services.h"

namespace qtbind {

class QtMessageBoxes : public forms::MessageBoxes {
  public:
    forms::MessageAnswer Show(const std::string& text, const std::string& title,
                              forms::MessageButtons buttons, forms::MessageIcon icon) override;
};

}  // namespace qtbind
