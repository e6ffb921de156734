// What sort of control a model control stands for; the Qt binding picks its
// widget by this.
#pragma once

namespace forms {

enum class ControlKind {
    Label,
    PushButton,     // the raised 3-D key of the key pad
    CommandButton,  // a plain button (Backspace, Pi, dialog buttons)
    Image,          // a hidden picture holder (the drag icons)
    Grid,
    TextBox,
    Line,
    Picture,
    CommonDialog,  // no rectangle at all
};

enum class Alignment { Left, Right, Center };

}  // namespace forms
