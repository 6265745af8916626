// What images are written with unless a caller says otherwise.
#pragma once

namespace tolvanite {

/// The quality of JPEG output, from 0 to 1.
inline constexpr double TV_DEFAULT_JPEG_COMPRESSION = 0.85;

}  // namespace tolvanite
