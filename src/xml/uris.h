// URIs as text, as far as locations need them. Paths are those of Linux.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fdmorph {

/// The scheme of a URI, without the colon; empty for a path or a relative
/// reference.
[[nodiscard]] std::string_view uriScheme(std::string_view text);

/// The `file` URI of a path, made absolute by the working directory.
[[nodiscard]] std::string fileUri(std::string const& path);

/// The path of a `file` URI of this host; nothing for other URIs.
[[nodiscard]] std::optional<std::string> pathOfFileUri(std::string_view uri);

/// `text` with its percent escapes decoded. A wrong escape stays.
[[nodiscard]] std::string decodeEscapes(std::string_view text);

/// What `reference` means below the absolute URI `base`.
[[nodiscard]] std::string resolveUri(std::string_view base, std::string_view reference);

/// What follows "//" and stands before the path: the host. Empty if there is
/// none.
[[nodiscard]] std::string_view uriHost(std::string_view uri);

/// The path of a URI, without query and fragment. For a path, the path itself.
[[nodiscard]] std::string_view uriPath(std::string_view uri);

}  // namespace fdmorph
