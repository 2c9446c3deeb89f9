#include "layout/absent_image.h"

#include <algorithm>
#include <cstring>

namespace fdmorph::layout {
namespace {

// Shorter runs of one byte are not worth a step.
constexpr std::size_t kMinRun = 256;

}  // namespace

void AbsentImage::put(std::uint64_t offset, std::span<unsigned char const> bytes) {
  if (bytes.empty()) return;
  auto const last = std::find_if(bytes.rbegin(), bytes.rend(),
                                 [&bytes](unsigned char each) { return each != bytes.back(); });
  auto const run = static_cast<std::size_t>(last - bytes.rbegin());
  if (run >= kMinRun) {
    std::size_t const head = bytes.size() - run;
    put(offset, bytes.first(head));
    fill(offset + head, run, bytes.back());
    return;
  }
  bool const isNext = !m_steps.empty() && m_steps.back().kind == Kind::put &&
                      m_steps.back().offset + m_steps.back().size == offset;
  if (isNext) {
    m_steps.back().size += bytes.size();
  } else {
    m_steps.push_back({Kind::put, 0, offset, bytes.size(), m_bytes.size()});
  }
  m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
}

void AbsentImage::fill(std::uint64_t offset, std::uint64_t size, unsigned char byte) {
  if (size != 0) m_steps.push_back({Kind::fill, byte, offset, size, 0});
}

void AbsentImage::repeat(std::uint64_t offset, std::uint64_t size, std::uint64_t count) {
  if (count > 1) m_steps.push_back({Kind::repeat, 0, offset, size, count});
}

void AbsentImage::write(unsigned char* to) const {
  for (Step const& each : m_steps) {
    unsigned char* const begin = to + each.offset;
    switch (each.kind) {
      case Kind::put:
        std::memcpy(begin, m_bytes.data() + each.more, each.size);
        break;
      case Kind::fill:
        std::memset(begin, each.byte, each.size);
        break;
      case Kind::repeat: {
        // Twice as many each time.
        std::uint64_t const end = each.size * each.more;
        for (std::uint64_t done = each.size; done < end;) {
          std::uint64_t const step = std::min(done, end - done);
          std::memcpy(begin + done, begin, step);
          done += step;
        }
        break;
      }
    }
  }
}

}  // namespace fdmorph::layout
