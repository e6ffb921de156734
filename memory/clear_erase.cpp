#include "memory/clear_erase.h"

#include "memory/cells.h"

namespace memory {

void ClearMemoryClick(core::Program& p) {
    const std::size_t count = p.runtime.OpenForms().size();
    for (std::size_t i = 0; i < count; ++i) {
        forms::Form* f = OpenFormAt(p, i);
        if (!f || !IsCell(*f)) continue;
        ValueLabel(*f).SetCaption("0.");
        // The cell's own number: with cells 1, 3 and 4 the clears go into
        // those columns.
        if (auto n = CellNumber(*f)) p.tape->TapeWriteClear(*n);
    }
}

void EraseMemoryClick(core::Program& p) {
    // The count is taken once and each close shortens the list, so this walk
    // skips the form after every one it closes and runs past the end; the
    // parent's Unload closes the rest.
    const std::size_t count = p.runtime.OpenForms().size();
    for (std::size_t i = 0; i < count; ++i) {
        forms::Form* f = OpenFormAt(p, i);
        if (f && IsCell(*f)) p.runtime.Unload(*f);
    }
    p.runtime.Unload(*p.MDIForm1);
}

}  // namespace memory
