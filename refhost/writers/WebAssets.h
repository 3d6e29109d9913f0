#pragma once

#include <string_view>

/// The files of refhost/web/ and the drawing libraries, as they stand in the program. Made at build
/// time by cmake/EmbedWeb.cmake.

namespace refhost {

/// A script or style, and the hash by which a Content-Security-Policy allows it inline.
struct WebAsset {
    std::string_view fText;
    std::string_view fHash;  ///< "sha256-..."
};

namespace web {

extern const std::string_view kPage;     ///< the skeleton; places are {{name}}
extern const std::string_view kNotices;  ///< licences of the drawing libraries
extern const WebAsset kStyle;
extern const WebAsset kReport;

/// In the order in which they have to run.
extern const WebAsset kVega;
extern const WebAsset kVegaLite;
extern const WebAsset kVegaEmbed;

}  // namespace web
}  // namespace refhost
