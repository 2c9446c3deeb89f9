// The functions for C and COBOL. No exception leaves them.
#pragma GCC visibility push(default)
#include "library/fdrec.h"
#pragma GCC visibility pop

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "library/layout_file.h"
#include "library/worker.h"

using fdmorph::document::Syntax;
using fdmorph::library::Counts;
using fdmorph::library::Fault;
using fdmorph::library::LayoutFile;
using fdmorph::library::Output;
using fdmorph::library::WorkerPool;

// The statuses of the program are those of the library.
static_assert(int{FDREC_OK} == int{fdmorph::fdrec::kClean});
static_assert(int{FDREC_ERROR} == int{fdmorph::fdrec::kErrors});
static_assert(int{FDREC_USAGE} == int{fdmorph::fdrec::kUsageError});
static_assert(int{FDREC_FAILED} == int{fdmorph::fdrec::kFailed});

struct fdrec_layout {  // NOLINT(readability-identifier-naming): a name of the C interface
  fdrec_layout(std::string const& copybook, std::string_view options)
      : file(copybook, options), workers(file) {}

  LayoutFile file;
  mutable WorkerPool workers;
};

namespace {

thread_local std::string lastMessage;

// The messages here are short enough to need no memory.
int refuse(int status, char const* message) {
  lastMessage = message;
  return status;
}

template <typename Function>
int guarded(Function const& function) noexcept {
  try {
    lastMessage.clear();
    return function();
  } catch (std::bad_alloc const&) {
    return refuse(FDREC_FAILED, "out of memory");
  } catch (...) {
    return refuse(FDREC_FAILED, "internal error");
  }
}

int take(Fault fault) {
  lastMessage = std::move(fault.message);
  return fault.status;
}

// Copies an output to a caller, as a whole or not at all.
int deliver(Output const& output, void* out, std::size_t capacity, std::size_t* used) {
  if (used != nullptr) *used = output.bytes.size();
  if (output.bytes.size() > capacity) {
    lastMessage = "error: capacity of " + std::to_string(capacity) + " bytes; expected " +
                  std::to_string(output.bytes.size()) + " [capacity]";
    return FDREC_CAPACITY;
  }
  if (!output.bytes.empty()) std::memcpy(out, output.bytes.data(), output.bytes.size());
  return FDREC_OK;
}

struct Input {
  void const* bytes;
  std::size_t size;
};

struct Room {
  void* bytes;
  std::size_t capacity;
  std::size_t* used;
};

// What both directions have in common. `convert` has a worker make the output.
template <typename Convert>
int run(fdrec_layout const* layout, Input input, Room room, Convert const& convert) noexcept {
  if (room.used != nullptr) *room.used = 0;
  return guarded([&] {
    if (layout == nullptr) return refuse(FDREC_USAGE, "null layout");
    if (input.bytes == nullptr && input.size != 0) return refuse(FDREC_USAGE, "null input");
    if (room.bytes == nullptr && room.capacity != 0) return refuse(FDREC_USAGE, "null output");
    std::unique_ptr<fdmorph::library::Worker> worker = layout->workers.take();
    int status = convert(*worker);
    layout->workers.putBack(std::move(worker));
    return status;
  });
}

int toDocument(Syntax syntax, fdrec_layout const* layout, Input record, void const* counts,
               Room room) noexcept {
  return run(layout, record, room, [&](fdmorph::library::Worker& worker) {
    fdmorph::document::StoredRecord stored{
        {static_cast<unsigned char const*>(record.bytes), record.size}};
    if (counts != nullptr) {
      stored.counts = {static_cast<unsigned char const*>(counts), layout->file.maxCountSize()};
    }
    Output output = worker.toDocument(syntax, stored);
    if (output.fault.status != int{FDREC_OK}) return take(std::move(output.fault));
    return deliver(output, room.bytes, room.capacity, room.used);
  });
}

int toRecord(Syntax syntax, fdrec_layout const* layout, Input document, Room room,
             void* counts) noexcept {
  return run(layout, document, room, [&](fdmorph::library::Worker& worker) {
    bool hasCounts = counts != nullptr && layout->file.maxCountSize() != 0;
    std::string_view text{static_cast<char const*>(document.bytes), document.size};
    Output output = worker.toRecord(syntax, text, hasCounts ? Counts::given : Counts::none);
    if (output.fault.status != int{FDREC_OK}) return take(std::move(output.fault));
    int status = deliver(output, room.bytes, room.capacity, room.used);
    if (status == FDREC_OK && hasCounts && !output.counts.empty()) {
      std::memcpy(counts, output.counts.data(), output.counts.size());
    }
    return status;
  });
}

}  // namespace

extern "C" {

int fdrec_open(char const* copybook, char const* options, fdrec_layout** layout) {
  if (layout != nullptr) *layout = nullptr;
  return guarded([&] {
    if (layout == nullptr) return refuse(FDREC_USAGE, "null layout");
    if (copybook == nullptr) return refuse(FDREC_USAGE, "null copybook");
    auto made = std::make_unique<fdrec_layout>(copybook, options == nullptr ? "" : options);
    int status = take(made->file.fault());
    if (status == FDREC_OK) *layout = made.release();
    return status;
  });
}

int fdrec_to_xml(fdrec_layout const* layout, void const* record, std::size_t size,
                 void const* counts, char* out, std::size_t capacity, std::size_t* used) {
  return toDocument(Syntax::xml, layout, {record, size}, counts, {out, capacity, used});
}

int fdrec_to_json(fdrec_layout const* layout, void const* record, std::size_t size,
                  void const* counts, char* out, std::size_t capacity, std::size_t* used) {
  return toDocument(Syntax::json, layout, {record, size}, counts, {out, capacity, used});
}

int fdrec_from_xml(fdrec_layout const* layout, char const* document, std::size_t size, void* record,
                   std::size_t capacity, std::size_t* used, void* counts) {
  return toRecord(Syntax::xml, layout, {document, size}, {record, capacity, used}, counts);
}

int fdrec_from_json(fdrec_layout const* layout, char const* document, std::size_t size,
                    void* record, std::size_t capacity, std::size_t* used, void* counts) {
  return toRecord(Syntax::json, layout, {document, size}, {record, capacity, used}, counts);
}

std::size_t fdrec_message(char* out, std::size_t capacity) {
  if (out == nullptr || capacity == 0) return lastMessage.size();
  std::size_t size = std::min(lastMessage.size(), capacity - 1);
  std::memcpy(out, lastMessage.data(), size);
  out[size] = '\0';
  return lastMessage.size();
}

void fdrec_close(fdrec_layout* layout) {
  delete layout;
}

}  // extern "C"
