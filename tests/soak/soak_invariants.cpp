// What must hold after every step of the session, in the program's terms.
#include <set>
#include <string>

#include "forms/case_insensitive.h"
#include "memory/cells.h"
#include "shell/settings_io.h"
#include "soak_session.h"

namespace soak {

namespace {

constexpr int kLargest16 = 32767;

}  // namespace

std::string Session::CheckInvariants() {
    if (!settingsFailure_.empty()) return settingsFailure_;
    if (!observer_.failure.empty()) return observer_.failure;
    core::Program& p = P();
    const auto cells = Cells();

    // The counter of cells is the open cells plus one.
    if (static_cast<long>(p.MemoryCount) - 1 != static_cast<long>(cells.size())) {
        return "MemoryCount is " + std::to_string(p.MemoryCount) + " with " +
               std::to_string(cells.size()) + " cells open";
    }
    // Cell numbers are unique among open cells.
    std::set<std::int16_t> numbers;
    for (forms::Form* cell : cells) {
        const auto number = memory::CellNumber(*cell);
        if (!number) return "cell \"" + cell->Caption() + "\" has no number in its tag";
        if (!numbers.insert(*number).second) {
            return "two open cells have the number " + std::to_string(*number);
        }
    }
    // The grid keeps ten empty rows below every tape, unless that many rows
    // would pass the 16-bit limit, where the grid stops growing.
    const forms::Grid& grid = p.tape->Grid1();
    const auto& counts = p.tape->TapeRowCount();
    for (std::size_t t = 0; t < counts.size(); ++t) {
        const long wanted = static_cast<long>(counts[t]) + 10;
        if (wanted <= kLargest16 && grid.Rows() < wanted) {
            return "Grid1.Rows is " + std::to_string(grid.Rows()) + " with tape " +
                   std::to_string(t) + " at " + std::to_string(counts[t]) + " rows";
        }
    }
    // A small grid is looked at whole after every step; a large one at
    // every 256th (each write is checked anyway as it happens).
    const long size = static_cast<long>(grid.Rows()) * grid.Cols();
    return CheckTapeLines(size <= 4000 || step_ % 256 == 0);
}

std::string Session::CheckTapeLines(bool wholeGrid) {
    if (!observer_.failure.empty()) return observer_.failure;
    if (!wholeGrid) return "";
    const forms::Grid& grid = P().tape->Grid1();
    for (int col = 0; col < grid.Cols(); ++col) {
        for (int row = 1; row < grid.Rows(); ++row) {
            const std::string& text = grid.Cell(row, col);
            if (!text.empty() && text.back() != ' ') {
                return "tape " + std::to_string(col) + " row " + std::to_string(row) + " holds \"" +
                       text + "\", which does not end in a blank";
            }
        }
    }
    return "";
}

// What the last end wrote must be what this start took: asked to write now,
// before anything has happened, the program writes the same entries.
// Narrowed where the start itself moves a window: a calculator saved within
// 500 twips of the screen's right or bottom edge comes back at 0, 0.
std::string Session::CheckSettingsReadBack() {
    if (written_.empty()) return "";
    settings_.captured = forms::MemorySettingsStore();
    settings_.capturing = true;
    shell::WriteSettings(P());
    settings_.capturing = false;

    auto number = [&](const char* key) {
        auto v = settings_.store.Read("Settings", key);
        return v ? std::stod(*v) : 0.0;
    };
    const bool movedHome =
        screen_.width - 500 < number("CalcLeft") || screen_.height - 500 < number("CalcTop");
    for (const auto& entry : written_) {
        const auto now = settings_.captured.Read(entry.section, entry.key);
        if (movedHome && entry.section == "Settings" &&
            (forms::EqualsIgnoringCase(entry.key, "CalcTop") ||
             forms::EqualsIgnoringCase(entry.key, "CalcLeft"))) {
            if (now != "0") return "the calculator saved off the screen did not come back at 0, 0";
            continue;
        }
        if (now != entry.value) {
            return "[" + entry.section + "] " + entry.key + " was written as \"" + entry.value +
                   "\" and the next start took it as \"" + now.value_or("(nothing)") + "\"";
        }
    }
    return "";
}

}  // namespace soak
