#pragma once

namespace ztolvan {

// Makes ZProcessa's screen option show the real screens (TolvanF01; the
// price consultation once it exists) through the thread's window system.
// A window system must be installed first (PortaJanelas in the screens
// port), else the screens would close as soon as they open.
void InstalaTelas();

} // namespace ztolvan
