#include "xml/network.h"

#include <arpa/inet.h>
#include <curl/curl.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <xercesc/util/BinMemInputStream.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>
#include <xercesc/util/XMLURL.hpp>

namespace fdmorph {
namespace {

using xerces::NetAccessorException;
using xerces::XMLExcepts;
using xerces::XMLURL;

constexpr char kProtocols[] = "http,https,ftp";
constexpr long kMaxRedirections = 6;

// True if the host is known without asking a name server.
bool isAddress(std::string const& host) {
  std::array<unsigned char, sizeof(in6_addr)> address{};
  std::string plain = host;
  if (plain.size() > 1 && plain.front() == '[') plain = plain.substr(1, plain.size() - 2);
  return host == "localhost" || inet_pton(AF_INET, plain.c_str(), address.data()) == 1 ||
         inet_pton(AF_INET6, plain.c_str(), address.data()) == 1;
}

[[noreturn]] void fail(XMLExcepts::Codes code, XMLCh const* subject = nullptr) {
  throw NetAccessorException(__FILE__, __LINE__, code, subject);
}

// What the library reports for a host that cannot be reached.
[[noreturn]] void failToConnect(XMLURL const& url) {
  if (url.getProtocol() == XMLURL::File) fail(XMLExcepts::NetAcc_InternalError, url.getURLText());
  bool isName = url.getHost() != nullptr && !isAddress(toLocalText(url.getHost()));
  if (isName) fail(XMLExcepts::NetAcc_TargetResolution, url.getHost());
  fail(XMLExcepts::NetAcc_ConnSocket, url.getURLText());
}

using Transfer = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;

struct Body {
  std::string bytes;
  std::size_t limit;
};

std::size_t append(char const* data, std::size_t, std::size_t size, void* target) {
  Body& body = *static_cast<Body*>(target);
  if (size > body.limit - body.bytes.size()) return 0;  // ends the transfer
  body.bytes.append(data, size);
  return size;
}

void configure(CURL* transfer, char const* url, NetworkLimits const& limits, Body& body) {
  curl_easy_setopt(transfer, CURLOPT_URL, url);
  curl_easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, kProtocols);
  curl_easy_setopt(transfer, CURLOPT_REDIR_PROTOCOLS_STR, kProtocols);
  curl_easy_setopt(transfer, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(transfer, CURLOPT_MAXREDIRS, kMaxRedirections);
  curl_easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(transfer, CURLOPT_CONNECTTIMEOUT_MS,
                   static_cast<long>(limits.connecting.count()));
  curl_easy_setopt(transfer, CURLOPT_TIMEOUT_MS, static_cast<long>(limits.file.count()));
  curl_easy_setopt(transfer, CURLOPT_WRITEFUNCTION, append);
  curl_easy_setopt(transfer, CURLOPT_WRITEDATA, &body);
}

// The code of the library's report for the end of a transfer.
XMLExcepts::Codes reportOf(CURL* transfer, CURLcode result) {
  switch (result) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return XMLExcepts::NetAcc_TargetResolution;
    case CURLE_COULDNT_CONNECT:
      return XMLExcepts::NetAcc_ConnSocket;
    case CURLE_OPERATION_TIMEDOUT: {
      double connected = 0;
      curl_easy_getinfo(transfer, CURLINFO_CONNECT_TIME, &connected);
      return connected > 0 ? XMLExcepts::NetAcc_ReadSocket : XMLExcepts::NetAcc_ConnSocket;
    }
    case CURLE_RECV_ERROR:
    case CURLE_WRITE_ERROR:
      return XMLExcepts::NetAcc_ReadSocket;
    default:
      return XMLExcepts::NetAcc_InternalError;
  }
}

/// Owns the bytes that it reads.
class FetchedStream : public xerces::BinInputStream {
 public:
  explicit FetchedStream(std::string bytes)
      : m_bytes(std::move(bytes)),
        m_stream(reinterpret_cast<XMLByte const*>(m_bytes.data()), m_bytes.size(),
                 xerces::BinMemInputStream::BufOpt_Reference) {}

  XMLFilePos curPos() const override { return m_stream.curPos(); }
  XMLCh const* getContentType() const override { return nullptr; }
  XMLSize_t readBytes(XMLByte* target, XMLSize_t size) override {
    return m_stream.readBytes(target, size);
  }

 private:
  std::string m_bytes;
  xerces::BinMemInputStream m_stream;
};

}  // namespace

xerces::BinInputStream* NetworkRefusal::makeNew(XMLURL const& url,
                                                xerces::XMLNetHTTPInfo const* /*unused*/) {
  failToConnect(url);
}

xerces::BinInputStream* BoundedNetwork::makeNew(XMLURL const& url,
                                                xerces::XMLNetHTTPInfo const* /*unused*/) {
  if (url.getProtocol() == XMLURL::File) failToConnect(url);
  Transfer transfer(curl_easy_init(), curl_easy_cleanup);
  if (transfer == nullptr) fail(XMLExcepts::NetAcc_InitFailed);
  Body body{{}, m_limits.bytes};
  configure(transfer.get(), toLocalText(url.getURLText()).c_str(), m_limits, body);
  CURLcode result = curl_easy_perform(transfer.get());
  if (result == CURLE_OK) return new FetchedStream(std::move(body.bytes));
  XMLExcepts::Codes code = reportOf(transfer.get(), result);
  fail(code, code == XMLExcepts::NetAcc_TargetResolution ? url.getHost() : url.getURLText());
}

void installNetworkRules() {
  xerces::XMLNetAccessor*& installed = xerces::XMLPlatformUtils::fgNetAccessor;
  if (dynamic_cast<NetworkRefusal*>(installed) != nullptr ||
      dynamic_cast<BoundedNetwork*>(installed) != nullptr) {
    return;
  }
  char const* value = std::getenv(kNetworkVariable);
  bool isAllowed = value != nullptr && std::string_view(value) == "yes";
  delete installed;
  if (isAllowed) {
    installed = new BoundedNetwork;
  } else {
    installed = new NetworkRefusal;
  }
}

}  // namespace fdmorph
