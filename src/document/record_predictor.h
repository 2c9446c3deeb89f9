// The short way through a document that is spelled as expected.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fdmorph::document {

/// Reads records whose markup it knows beforehand, by comparing bytes. What it declines
/// goes to the general parser, so it needs to take only records without any error.
class RecordPredictor {
 public:
  struct Outcome {
    enum class Kind : std::uint8_t {
      declined,    ///< the bytes are not as expected; nothing has changed
      incomplete,  ///< they are as far as they go; it is asked again with more
      taken,       ///< a record has been read
    };
    Kind kind;
    std::size_t size = 0;  ///< taken: the bytes from `<` to the `>` of the end tag
  };

  RecordPredictor() = default;
  RecordPredictor(RecordPredictor const&) = delete;
  RecordPredictor& operator=(RecordPredictor const&) = delete;
  virtual ~RecordPredictor() = default;

  /// `bytes` begin with the `<` of a start tag and are UTF-8, perhaps malformed. No
  /// namespace is declared around it.
  [[nodiscard]] virtual Outcome read(std::string_view bytes) = 0;
};

}  // namespace fdmorph::document
