#pragma once

// Deliberately free of Qt: hosts and the command line call it without
// knowing the toolkit.

namespace ztolvan {

// When this process can show windows (DISPLAY or WAYLAND_DISPLAY set, or
// QT_QPA_PLATFORM given) makes sure a QApplication exists and installs, for
// the process, the Qt message boxes, the Qt window system and the rights
// table as security component with the Qt authorisation dialog. Threads
// other than the QApplication's keep the window-less ports. True when it
// installed them; without a display nothing changes. Quotations then go to
// the Qt printer as well. Never throws.
bool InstalaQt();

// Quotation jobs on the Qt printer (default printer or PDF) without any
// window: a process with no Qt application gets an offscreen one, since
// printing needs fonts, not a display. False when the process already runs
// a Qt application without a GUI. Never throws.
bool InstalaImpressoraQt();

} // namespace ztolvan
