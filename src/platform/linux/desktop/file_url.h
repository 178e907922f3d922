// File names as URLs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace nerolith::desktop {

/// "file:///..." for a whole path. Names are bytes: all but letters, digits and "-._~/" are written
/// as %XX (RFC 3986, RFC 8089), so that any name comes back as it was.
std::string fileUrl(std::string_view path);

/// The path that a "file:" URL of this machine names; nothing for any other URL, or one with a
/// malformed or null byte. A bare path is taken as it stands.
std::optional<std::string> pathOfUrl(std::string_view url);

}  // namespace nerolith::desktop
