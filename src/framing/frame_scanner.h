// The borders of records in the bytes of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framing/batch.h"
#include "framing/descriptor.h"
#include "framing/frame_error.h"
#include "framing/framing_rules.h"

namespace fdmorph::framing {

/// Descriptors in the order of a file, with the blocks around records.
class DescriptorWalk {
 public:
  explicit DescriptorWalk(FramingRules const& rules);

  struct Step {
    bool isRecord = false;            ///< else a block
    std::uint32_t size = 0;           ///< bytes after the descriptor
    std::optional<FrameFault> fault;  ///< then `size` is that of what a block has too much
  };

  /// Reads the descriptor at an offset of the file. `bytes` are those from there to
  /// the end of what is known, at least kDescriptorBytes unless the file ends there;
  /// not empty.
  [[nodiscard]] Step read(std::string_view bytes, std::uint64_t offset);

  /// Whether no block is cut in two at this offset, where a descriptor is.
  [[nodiscard]] bool isBetweenBlocks(std::uint64_t offset) const {
    return !m_isInBlock || offset == m_blockEnd;
  }

  /// The block that the file, which ends at `offset`, has only a part of.
  [[nodiscard]] std::optional<FrameError> finish(std::uint64_t offset) const;

 private:
  DescriptorForm m_form;
  bool m_isBlocked;
  bool m_isInBlock = false;
  std::uint64_t m_blockBegin = 0;
  std::uint64_t m_blockEnd = 0;
  std::string m_blockDescriptor;
};

/// Finds records. The bytes of a file are given in order, in pieces of any size.
class FrameScanner {
 public:
  FrameScanner(FramingRules const& rules, std::uint64_t firstNumber);

  struct Result {
    std::size_t used = 0;    ///< bytes that need not be given again
    std::size_t needed = 0;  ///< bytes after these to give the next time, at least; 0: any
    std::optional<FrameError> error;
    bool isLineOpen = false;  ///< the last frame is a long line; continueLine takes the rest
  };

  /// Appends the records in `bytes` to `frames`, up to `maxFrames` in all. `bytes` stand
  /// at `offset` in the file, after those that were used, and at `begin` in the batch.
  /// `isEnd`: the file has no more. Skipped records are passed over.
  [[nodiscard]] Result scan(std::string_view bytes, std::uint64_t offset, bool isEnd,
                            std::vector<Frame>& frames, std::size_t maxFrames);

  /// Passes over the rest of a long line. The result is the number of bytes up to and
  /// with the line feed; nothing if it has not come. `frame` is that of the line, or
  /// null if it is skipped.
  [[nodiscard]] std::optional<std::size_t> continueLine(std::string_view bytes, bool isEnd,
                                                        Frame* frame);

  /// Whether as many records as wanted are found.
  [[nodiscard]] bool isComplete() const { return m_number > m_lastNumber; }

  /// The number of the next record.
  [[nodiscard]] std::uint64_t nextNumber() const { return m_number; }

  /// Counts records that the caller has passed over.
  void passOver(std::uint64_t records) { m_number += records; }

 private:
  struct Scan;

  void scanFixed(Scan& scan) const;
  void scanDescriptors(Scan& scan);
  void scanLines(Scan& scan);

  FramingRules const m_rules;
  DescriptorWalk m_walk;
  std::uint64_t m_number;      // of the next record
  std::uint64_t m_lastNumber;  // of the last record that is wanted
  std::uint64_t m_lineLimit;   // bytes of a line that are kept
  std::size_t m_searched = 0;  // bytes of the next line that have no line feed
  bool m_isReturnPending = false;
};

}  // namespace fdmorph::framing
