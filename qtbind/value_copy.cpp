#include "qtbind/value_copy.h"

#include "core/program.h"
#include "measure/text_tools.h"
#include "memory/cells.h"

namespace qtbind {

std::string ValueToCopy(core::Program& p) {
    forms::Form* active = p.runtime.ActiveForm();
    if (active && memory::IsCell(*active)) {
        return measure::TrimBlanks(memory::ValueLabel(*active).Caption());
    }
    return measure::TrimBlanks(p.calc->Readout.Caption());
}

}  // namespace qtbind
