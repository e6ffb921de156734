#include "memory/cells.h"

#include "measure/number_text.h"
#include "measure/read_number.h"
#include "measure/text_tools.h"
#include "measure/whole_numbers.h"

namespace memory {

bool IsCell(const forms::Form& form) {
    return form.Tag().find("memory") != std::string::npos;
}

forms::Control& ValueLabel(forms::Form& cell) {
    return cell.Get("Label1");
}

namespace {
std::optional<std::int16_t> NumberFromRight(const std::string& tag, int skip, bool trim) {
    const int take = static_cast<int>(tag.size()) - skip;
    if (take < 0) return std::nullopt;  // a negative length fails
    std::string digits = tag.substr(tag.size() - static_cast<std::size_t>(take));
    if (trim) digits = measure::TrimBlanks(digits);
    return measure::ToInt16(measure::ReadNumber(digits));
}
}  // namespace

std::optional<std::int16_t> CellNumber(forms::Form& cell) {
    return NumberFromRight(ValueLabel(cell).Tag(), 6, true);
}

std::optional<std::int16_t> CellNumberForRename(forms::Form& cell) {
    return NumberFromRight(ValueLabel(cell).Tag(), 7, false);
}

std::string StrForm(std::int16_t number) {
    return measure::NumberText(number);
}

forms::Form* OpenFormAt(core::Program& p, std::size_t index) {
    const auto& open = p.runtime.OpenForms();
    return index < open.size() ? open[index] : nullptr;
}

}  // namespace memory
