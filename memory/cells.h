// What a memory cell is: a form tagged "memory", whose caption is the name,
// whose Label1 holds the value as its caption and the cell's number in its
// tag ("memory 1"). There is no other record: whoever needs the cells walks
// the list of open forms and picks those that carry the tag.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/program.h"

namespace memory {

// "memory" occurs in the form's tag.
bool IsCell(const forms::Form& form);
forms::Control& ValueLabel(forms::Form& cell);

// The number, read from the text of Label1's tag after its sixth
// character, trimmed, rounded to a 16-bit integer; nullopt where the tag is
// too short or the number does not fit.
std::optional<std::int16_t> CellNumber(forms::Form& cell);
// The same number as the rename reads it: one character fewer from the
// right and no trimming, which comes to the same for every tag written here.
std::optional<std::int16_t> CellNumberForRename(forms::Form& cell);

// A whole number as the program writes it into names and tags: its digits,
// with a blank in front when it is not negative (" 12").
std::string StrForm(std::int16_t number);

// The open form at `index` of the list, nullptr past its end (a walk that
// closes forms as it goes runs past the end, and passes over that).
forms::Form* OpenFormAt(core::Program& p, std::size_t index);

}  // namespace memory
