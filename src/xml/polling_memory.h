// Memory of the XML library. For this folder only.
#pragma once

#include <xercesc/internal/MemoryManagerImpl.hpp>

#include "text/status_line.h"

namespace fdmorph {

/// The library's own memory, which lets the status line be drawn: the library can check a
/// schema for minutes without a call of ours, and it allocates all the time.
class PollingMemory : public xercesc::MemoryManagerImpl {
 public:
  void* allocate(XMLSize_t size) override {
    statusLine.pollRarely();
    return MemoryManagerImpl::allocate(size);
  }
};

}  // namespace fdmorph
