// The scenario's commands about how the windows look: `color` and `colors`
// for the colour dialog, `backcolor` and `font` of a form or control, and
// `controls`, the rectangle of every control of a form.
#include <limits>
#include <ostream>

#include "scenario/command_words.h"
#include "scenario/runner.h"

namespace scenario {

bool Runner::LookCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (verb == "color" && w.size() == 2 && !w[1].quoted) {
        if (w[1].text == "Cancel") {
            colorDialogs_.QueueAnswer(std::nullopt);
            return true;
        }
        auto value = ParseNumber(w[1].text);
        if (!value || *value < 0 || *value > std::numeric_limits<std::uint32_t>::max() ||
            *value != static_cast<double>(static_cast<std::uint32_t>(*value))) {
            return false;
        }
        colorDialogs_.QueueAnswer(static_cast<std::uint32_t>(*value));
        return true;
    }
    if (verb == "colors" && w.size() == 1) {
        for (std::uint32_t start : colorDialogs_.TakeShown()) out_ << start << "\n";
        return true;
    }
    if (verb == "backcolor" && w.size() == 2) {
        if (w[1].text.find('.') != std::string::npos) {
            forms::Control* c = FindControl(w[1].text);
            if (!c) return false;
            out_ << c->BackColor() << "\n";
            return true;
        }
        forms::Form* f = FindForm(w[1].text);
        if (!f) return false;
        out_ << f->BackColor() << "\n";
        return true;
    }
    if (verb == "controls" && w.size() == 2) {
        forms::Form* f = FindForm(w[1].text);
        if (!f) return false;
        const auto& controls = f->Controls();
        for (std::size_t i = 0; i < controls.size(); ++i) {
            const forms::Control& c = *controls[i];
            out_ << i << " " << c.FullName();
            if (c.HasRectangle()) {
                out_ << " " << FormatNumber(c.Left()) << " " << FormatNumber(c.Top()) << " "
                     << FormatNumber(c.Width()) << " " << FormatNumber(c.Height());
            } else {
                out_ << " none";
            }
            out_ << "\n";
        }
        return true;
    }
    if (verb == "font" && w.size() == 2) {
        forms::Control* c = FindControl(w[1].text);
        if (!c) return false;
        const forms::Font& font = c->GetFont();
        out_ << Quote(font.Name) << " " << FormatNumber(font.Size) << " " << Truth(font.Bold)
             << "\n";
        return true;
    }
    return false;
}

}  // namespace scenario
