#pragma once
#include <cmath>

namespace ztolvan {

// Screen lengths are in twips: 1440 to the inch, at the screen's logical DPI.
inline int TwipsParaPixels(int twips, double dpi) {
    return static_cast<int>(std::lround(twips * dpi / 1440.0));
}
inline int PixelsParaTwips(int pixels, double dpi) {
    return dpi > 0 ? static_cast<int>(std::lround(pixels * 1440.0 / dpi)) : 0;
}

} // namespace ztolvan
