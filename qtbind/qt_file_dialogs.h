// The desktop's dialog for a file name, for opening or saving the memory
// file. It is Qt's own widget dialog rather than the platform's, so that the
// title, the filters and the options are exactly the program's and it looks
// and acts the same everywhere; it comes up application-modal and in front
// of the program's windows, which all float above other programs.
#pragma once

#include <QStringList>
#include <optional>
#include <string>

#include "forms/services.h"

namespace qtbind {

// The program's filter, pairs of description and pattern parted by "|"
// ("Memory (*.mem)|*.mem|all files (*.*)|*.*"), as Qt's name filters
// ("Memory (*.mem)", "all files (*.*)"). Qt reads the patterns from the
// parentheses that end a name filter, so a description that does not end in
// its own patterns gets them added: "Text|*.txt;*.text" becomes
// "Text (*.txt *.text)". A pair without a pattern is left out.
QStringList NameFiltersOf(const std::string& filter);

class QtFileDialogs : public forms::FileDialogs {
  public:
    // Needs a QApplication. Returns the absolute path chosen, with the
    // default extension added to a name typed without one, or nothing when
    // the user cancels.
    std::optional<std::string> Show(const forms::FileDialogRequest& request) override;
};

}  // namespace qtbind
