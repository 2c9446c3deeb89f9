// What the XML library may fetch over a network: nothing, unless the user allows
// it. For this folder only.
#pragma once

#include <chrono>
#include <cstddef>
#include <xercesc/util/XMLNetAccessor.hpp>

#include "xml/transcoding.h"

namespace fdmorph {

/// The environment variable that allows fetching with the value "yes".
inline constexpr char kNetworkVariable[] = "FDMORPH_NETWORK";

struct NetworkLimits {
  std::chrono::milliseconds connecting{10'000};
  std::chrono::milliseconds file{60'000};    ///< connecting included
  std::size_t bytes = std::size_t{1} << 30;  ///< of a file
};

/// Refuses every location with the report of a host that cannot be reached.
class NetworkRefusal : public xerces::XMLNetAccessor {
 public:
  XMLCh const* getId() const override { return u"none"; }
  xerces::BinInputStream* makeNew(xerces::XMLURL const& url,
                                  xerces::XMLNetHTTPInfo const* unused) override;
};

/// Fetches whole files by HTTP, HTTPS and FTP within limits.
class BoundedNetwork : public xerces::XMLNetAccessor {
 public:
  explicit BoundedNetwork(NetworkLimits limits = {}) : m_limits(limits) {}

  XMLCh const* getId() const override { return u"bounded"; }
  xerces::BinInputStream* makeNew(xerces::XMLURL const& url,
                                  xerces::XMLNetHTTPInfo const* unused) override;

 private:
  NetworkLimits m_limits;
};

/// Gives the library the accessor that the environment asks for. To be called
/// after each start of the library.
void installNetworkRules();

}  // namespace fdmorph
