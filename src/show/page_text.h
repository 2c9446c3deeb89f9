// The text of the page, made from the files of the folder page when the program is
// built.
#pragma once

#include <string_view>

namespace fdmorph::show {

/// The page with its style and its script; `{{title}}` and `{{data}}`, in this order,
/// stand for its title and its data.
extern std::string_view const kPageText;

}  // namespace fdmorph::show
