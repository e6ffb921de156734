// The desktop's beep.
#pragma once

#include "forms/services.h"

namespace qtbind {

class QtBeeper : public forms::Beeper {
  public:
    void Beep() override;
};

}  // namespace qtbind
