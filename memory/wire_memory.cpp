#include "memory/wire_memory.h"

#include "memory/cell_layout.h"
#include "memory/clear_erase.h"
#include "memory/input_prompt.h"
#include "memory/memory_file_menu.h"
#include "memory/memory_parent.h"
#include "memory/new_memory.h"

namespace memory {

void WireMemory(core::Program& p) {
    forms::Form& calc = *p.Calculator;
    calc.GetMenu("NewMemory").Click = [&p] { NewMemoryClick(p); };
    calc.GetMenu("NamedMemory").Click = [&p] { NamedMemoryClick(p); };
    calc.GetMenu("mnuArrangeMemory").Click = [&p] { ArrangeMemory(p); };
    calc.GetMenu("ClearMemory").Click = [&p] { ClearMemoryClick(p); };
    calc.GetMenu("EraseMemory").Click = [&p] { EraseMemoryClick(p); };
    calc.GetMenu("mnuOpen").Click = [&p] { OpenClick(p); };
    calc.GetMenu("mnuSave").Click = [&p] { SaveClick(p); };
    calc.GetMenu("mnuSaveAs").Click = [&p] { SaveAsClick(p); };

    forms::Form& parent = *p.MDIForm1;
    parent.Resize = [&p] { MemoryParentResize(p); };
    parent.Unload = [&p](int& cancel) { MemoryParentUnload(p, cancel); };
    WireInputPrompt(p);
}

}  // namespace memory
