#pragma once

// Deliberately free of Qt: hosts and the command line call it without
// knowing the toolkit.

namespace ztolvan {

// When this process can show windows (DISPLAY or WAYLAND_DISPLAY set, or
// QT_QPA_PLATFORM given) makes sure a QApplication exists and installs, for
// the process, the Qt message boxes, the Qt window system and the rights
// table as security component with the Qt authorisation dialog. Threads
// other than the QApplication's keep the window-less ports. True when it
// installed them; without a display nothing changes. Never throws.
bool InstalaQt();

} // namespace ztolvan
