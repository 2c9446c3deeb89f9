#include "text/pending_files.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <utility>

namespace fdmorph {
namespace {

// More than a run ever needs: the compiler's four files, and one output.
constexpr std::size_t kSlots = 16;

using Slot = std::atomic<PendingFile const*>;
static_assert(Slot::is_always_lock_free, "signal handlers read it");

// Pointers only, because a signal handler may look at any moment.
constinit std::array<Slot, kSlots> slots{};

bool isSame(timespec const& left, timespec const& right) {
  return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

}  // namespace

bool FileVersion::operator==(FileVersion const& other) const {
  return exists == other.exists && device == other.device && inode == other.inode &&
         size == other.size && isSame(written, other.written) && isSame(changed, other.changed);
}

FileVersion versionOf(char const* path) {
  struct stat state {};
  if (lstat(path, &state) != 0) return {};
  return {true, state.st_dev, state.st_ino, state.st_size, state.st_mtim, state.st_ctim};
}

PendingFile::PendingFile(std::string path)
    : m_path(std::move(path)), m_before(versionOf(m_path.c_str())) {
  auto free = std::find(slots.begin(), slots.end(), nullptr);
  if (free != slots.end()) *free = this;
}

PendingFile::~PendingFile() {
  auto mine = std::find(slots.begin(), slots.end(), this);
  if (mine != slots.end()) *mine = nullptr;
}

bool PendingFile::isNew() const {
  FileVersion const now = versionOf(m_path.c_str());
  return now.exists && !(now == m_before);
}

bool PendingFile::remove() const {
  return !isNew() || unlink(m_path.c_str()) == 0 || errno == ENOENT;
}

void removePendingFiles() {
  for (Slot const& slot : slots) {
    if (PendingFile const* file = slot.load()) file->remove();
  }
}

void forgetPendingFiles() {
  for (Slot& slot : slots) slot = nullptr;
}

}  // namespace fdmorph
