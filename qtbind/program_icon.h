// The program's icon on the frames of the windows that have one and in the
// desktop's list of windows. Its pictures are built into the program, so
// that it finds them wherever it runs from: the build folder or where it is
// installed.
#pragma once

#include <QIcon>

namespace qtbind {

// The icon in every size that the program carries (16 to 256 pixels).
QIcon ProgramIcon();

}  // namespace qtbind
