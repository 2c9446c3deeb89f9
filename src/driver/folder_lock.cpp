#include "driver/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "text/console.h"
#include "text/status_line.h"

namespace fdmorph {
namespace {

constexpr std::chrono::seconds kPatience{10};
constexpr std::chrono::milliseconds kPause{10};

enum class Attempt { locked, taken, impossible };

Attempt lock(int folder, int operation) {
  while (flock(folder, operation) != 0) {
    if (errno == EWOULDBLOCK) return Attempt::taken;
    if (errno != EINTR) return Attempt::impossible;
  }
  return Attempt::locked;
}

// There is no call that waits for a limited time.
Attempt lockSoon(int folder) {
  auto const end = std::chrono::steady_clock::now() + kPatience;
  Attempt attempt = lock(folder, LOCK_EX | LOCK_NB);
  while (attempt == Attempt::taken && std::chrono::steady_clock::now() < end) {
    statusLine.poll();
    std::this_thread::sleep_for(kPause);
    attempt = lock(folder, LOCK_EX | LOCK_NB);
  }
  return attempt;
}

}  // namespace

FolderLock::FolderLock(std::string const& folder)
    : m_folder(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  std::string const shown = folder.empty() ? "./" : folder;
  statusLine.beginStep("waiting for another run in", shown, StepUnit::none);
  if (m_folder < 0 || lockSoon(m_folder) != Attempt::taken) return;
  out() << "Waiting for another run in " << shown << endLine;
  lock(m_folder, LOCK_EX);
}

// Closing is enough, and unlike an unlock it leaves the lock to the parent when
// a child process does it.
FolderLock::~FolderLock() {
  if (m_folder >= 0) close(m_folder);
}

}  // namespace fdmorph
