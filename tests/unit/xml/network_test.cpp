// Nothing is fetched unless the user allows it, and then within limits.

#include "xml/network.h"

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/XMLURL.hpp>

#include "support/parser_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

/// Answers one connection on the loopback interface.
class Server {
 public:
  using Answer = std::function<void(int descriptor, std::atomic<bool> const& isEnding)>;

  explicit Server(Answer answer) : m_listener(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    EXPECT_EQ(bind(m_listener, generic, size), 0);
    EXPECT_EQ(listen(m_listener, 1), 0);
    EXPECT_EQ(getsockname(m_listener, generic, &size), 0);
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this, answer = std::move(answer)] { serve(answer); });
  }

  ~Server() {
    m_isEnding = true;
    m_thread.join();
    close(m_listener);
  }
  Server(Server const&) = delete;
  Server& operator=(Server const&) = delete;

  std::string url(std::string const& scheme = "http") const {
    return scheme + "://127.0.0.1:" + std::to_string(m_port) + "/a.xsd";
  }
  bool wasConnected() const { return m_wasConnected; }

 private:
  void serve(Answer const& answer) {
    pollfd waiting{m_listener, POLLIN, 0};
    while (!m_isEnding) {
      if (poll(&waiting, 1, 10) <= 0) continue;
      int descriptor = accept(m_listener, nullptr, nullptr);
      m_wasConnected = true;
      answer(descriptor, m_isEnding);
      close(descriptor);
      return;
    }
  }

  int m_listener;
  unsigned m_port = 0;
  std::atomic<bool> m_isEnding = false;
  std::atomic<bool> m_wasConnected = false;
  std::thread m_thread;
};

void send(int descriptor, std::string const& text) {
  EXPECT_EQ(::send(descriptor, text.data(), text.size(), MSG_NOSIGNAL),
            static_cast<ssize_t>(text.size()));
}

Server::Answer response(std::string const& text) {
  return [text](int descriptor, std::atomic<bool> const&) {
    char request[1000];
    EXPECT_GT(recv(descriptor, request, sizeof request, 0), 0);
    send(descriptor, text);
  };
}

Server::Answer body(std::string const& text) {
  return response("HTTP/1.0 200 OK\r\n\r\n" + text);
}

void stayMute(int, std::atomic<bool> const& isEnding) {
  while (!isEnding) std::this_thread::sleep_for(5ms);
}

void drip(int descriptor, std::atomic<bool> const& isEnding) {
  send(descriptor, "HTTP/1.0 200 OK\r\n\r\n");
  while (!isEnding) {
    ::send(descriptor, " ", 1, MSG_NOSIGNAL);
    std::this_thread::sleep_for(5ms);
  }
}

class Network : public ParserTest {
 protected:
  /// What an accessor gives for a URL: the text, or the message of its exception.
  static std::string fetch(xerces::XMLNetAccessor&& accessor, std::string const& url) {
    try {
      std::unique_ptr<xerces::BinInputStream> stream(
          accessor.makeNew(xerces::XMLURL(url.c_str()), nullptr));
      std::string text;
      XMLByte block[100];
      while (XMLSize_t count = stream->readBytes(block, sizeof block)) {
        text.append(reinterpret_cast<char*>(block), count);
      }
      return text;
    } catch (xerces::XMLException const& e) {
      return toLocalText(e.getMessage());
    }
  }

  static std::string including(std::string const& location) {
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:include schemaLocation='" +
           location + "'/></xs:schema>";
  }
};

TEST_F(Network, IsNotUsedForASchemaThatRefersToIt) {
  Server server(body("<a/>"));
  EXPECT_FALSE(parseSchema(including(server.url())));
  EXPECT_THAT(captured.err(), HasSubstr("unable to connect socket for URL '" + server.url() + "'"));
  EXPECT_EQ(console.m_nErrorCount, 2);
  EXPECT_FALSE(server.wasConnected());
}

TEST_F(Network, IsNotUsedWhateverTheSchemeAndItsCase) {
  for (std::string scheme : {"http", "HTTP", "hTTps", "https", "ftp", "FTP"}) {
    Server server(body("<a/>"));
    EXPECT_FALSE(parseSchema(including(server.url(scheme))));
    EXPECT_FALSE(server.wasConnected()) << scheme;
  }
}

TEST_F(Network, IsNotUsedForAnythingThatADocumentRefersTo) {
  Server server(body("<a/>"));
  std::string const url = server.url();
  for (std::string text : {"<!DOCTYPE a SYSTEM '" + url + "'><a/>",
                           "<!DOCTYPE a [<!ENTITY e SYSTEM '" + url + "'>]><a>&e;</a>",
                           "<!DOCTYPE a [<!ENTITY % e SYSTEM '" + url + "'> %e;]><a/>",
                           "<a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                           "xsi:noNamespaceSchemaLocation='" +
                               url + "'/>"}) {
    parser.CheckDocument(folder.write("a.xml", text), true);
    EXPECT_THAT(captured.err(), HasSubstr("unable to connect socket for URL '" + url + "'"));
  }
  EXPECT_EQ(countOf("unable to connect", captured.err()), 4);
  EXPECT_FALSE(server.wasConnected());
}

TEST_F(Network, HostThatNeedsANameServerIsReportedAsUnknown) {
  EXPECT_EQ(fetch(NetworkRefusal(), "http://host.invalid/a.xsd"),
            "unable to resolve host/address 'host.invalid'");
  EXPECT_EQ(fetch(NetworkRefusal(), "http://127.0.0.1:1/a.xsd"),
            "unable to connect socket for URL 'http://127.0.0.1:1/a.xsd'");
}

TEST_F(Network, FileOfAnotherHostIsRefusedWithAndWithoutPermission) {
  EXPECT_EQ(fetch(NetworkRefusal(), "file://other/a.xsd"), "internal error in NetAccessor");
  EXPECT_EQ(fetch(BoundedNetwork(), "file://other/a.xsd"), "internal error in NetAccessor");
}

TEST_F(Network, WithPermissionAFileIsFetched) {
  Server server(body("<a>text</a>"));
  EXPECT_EQ(fetch(BoundedNetwork(), server.url()), "<a>text</a>");
}

TEST_F(Network, ClosedPortIsReportedAsTheLibraryDoes) {
  EXPECT_EQ(fetch(BoundedNetwork(), "http://127.0.0.1:1/a.xsd"),
            "unable to connect socket for URL 'http://127.0.0.1:1/a.xsd'");
}

TEST_F(Network, ServerThatNeverAnswersIsGivenUp) {
  Server server(stayMute);
  EXPECT_THAT(fetch(BoundedNetwork({10s, 100ms, 1000}), server.url()),
              HasSubstr("unable to read from socket"));
  EXPECT_TRUE(server.wasConnected());
}

TEST_F(Network, ServerThatDripsIsGivenUp) {
  Server server(drip);
  EXPECT_THAT(fetch(BoundedNetwork({10s, 100ms, 1'000'000}), server.url()),
              HasSubstr("unable to read from socket"));
}

TEST_F(Network, SizeOfAFileIsLimited) {
  NetworkLimits const limits{10s, 10s, 5};
  {
    Server server(body("12345"));
    EXPECT_EQ(fetch(BoundedNetwork(limits), server.url()), "12345");
  }
  Server server(body("123456"));
  EXPECT_THAT(fetch(BoundedNetwork(limits), server.url()), HasSubstr("unable to read from socket"));
}

TEST_F(Network, RedirectionToALocalFileIsNotFollowed) {
  std::string const secret = folder.write("secret", "secret");
  Server server(response("HTTP/1.0 302 Found\r\nLocation: file://" + secret + "\r\n\r\n"));
  EXPECT_EQ(fetch(BoundedNetwork(), server.url()), "internal error in NetAccessor");
}

}  // namespace
}  // namespace fdmorph
