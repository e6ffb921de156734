// The program's shared variables and its forms: what every handler reaches.
// There is one of each, made at the start and passed to the handlers.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/calc_state.h"
#include "core/calculator_view.h"
#include "core/common_dialog.h"
#include "forms/runtime.h"
#include "tape/tape_store.h"

namespace core {

struct Program {
    explicit Program(forms::Runtime& runtime) : runtime(runtime) {}

    forms::Runtime& runtime;
    CalcState state;

    // Display options and counters shared across the windows.
    std::int16_t AccuracyDenominator = 16;
    std::int16_t MemoryCount = 1;  // open memory cells plus one
    std::int16_t NextMemoryNumber = 1;
    std::int16_t MemoryWidth = 0;  // the outer width of every cell, in twips
    std::string InputResult;       // what the name prompt hands back

    // Flags against the re-entry of Resize, each for its own window.
    std::int16_t TapeFollowing = 0;
    std::int16_t TapeResizeGuard = 0;
    std::int16_t CellResizeGuard = 0;  // 0 idle, 1 running, 2 swallow the next
    std::int16_t ArrangingMemory = 0;  // a layout routine is moving the parent
    std::int16_t ResizeSkip = 0;       // the parent's own, against its own move

    // Where the main loop last saw the calculator, in twips.
    std::int32_t CalcTop = 0;
    std::int32_t CalcLeft = 0;

    // Colours of windows still to come, as read from the settings.
    std::int32_t MemoryBackColor = 8421376;
    std::int32_t MemoryReadoutColor = 8454143;
    std::int32_t ConverterBackColor = 8421376;
    std::int32_t ConverterReadoutColor = 8454143;
    std::int32_t ConverterResultColor = 8454143;

    // The converter is folded up to its top label.
    bool Collapsed = false;

    // The design rectangle of each control of Calculator, by its place in the
    // form's list, so that zooming back restores rather than multiplies.
    std::vector<std::int32_t> ControlLefts, ControlTops, ControlWidths, ControlHeights;

    std::string HelpFilePath;

    // The memory file last chosen in the dialog ("" until then), the common
    // dialog that chose it, and the file numbers in use: a write or a read
    // that failed half way leaves its number (1 to write, 2 to read) open
    // until the program ends.
    std::string MemoryFileName;
    CommonDialog CMDialog1;
    std::set<int> OpenFileNumbers;

    // The forms, once the catalogue has made them.
    forms::Form* Calculator = nullptr;
    forms::Form* frmTape = nullptr;
    forms::Form* Converter = nullptr;
    forms::Form* MDIForm1 = nullptr;
    forms::Form* frmInput = nullptr;
    // Makes a new memory cell from its design, with its handlers on; not
    // loaded yet: the first touch loads it.
    std::function<forms::Form&()> NewMemoryForm;

    std::unique_ptr<CalculatorView> calc;  // the controls of Calculator
    std::unique_ptr<tape::TapeStore> tape;

    void Beep() {
        if (auto* b = runtime.GetServices().beeper) b->Beep();
    }
};

}  // namespace core
