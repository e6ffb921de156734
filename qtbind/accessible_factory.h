// What screen readers are given for the program's widgets, where Qt's own
// interfaces fall short: a form's window is a frame or a dialog named by its
// title; a label reads its text through the text interface; the tape is a
// list of its lines; the memory window's area is the list of all its cells,
// whether they have widgets or not. Every other widget keeps Qt's own.
#pragma once

namespace qtbind {

// Puts these interfaces in place; once is enough, more does no harm.
void InstallAccessibleFactory();

}  // namespace qtbind
