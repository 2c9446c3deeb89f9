#include "framing/frame_error.h"

namespace fdmorph::framing {

std::string_view wordsOf(FrameFault fault) {
  switch (fault) {
    case FrameFault::partialRecord:
      return "the file ends within a record";
    case FrameFault::partialDescriptor:
      return "the file ends within a descriptor";
    case FrameFault::tooSmall:
      return "the length in the descriptor is less than its own 4 bytes";
    case FrameFault::notZero:
      return "the descriptor has no two zero bytes (spanned records are not supported)";
    case FrameFault::extendedBlock:
      return "extended blocks are not supported";
    case FrameFault::beyondEnd:
      return "the length in the descriptor goes beyond the end of the file";
    case FrameFault::beyondBlock:
      return "the length in the descriptor goes beyond the end of the block";
    case FrameFault::blockRest:
      return "the block has bytes after its last record";
    case FrameFault::noLength:
      return "records of 0 bytes cannot be told apart";
    case FrameFault::noTrailer:
      return "the file is shorter than its header and trailer";
  }
  return {};
}

}  // namespace fdmorph::framing
