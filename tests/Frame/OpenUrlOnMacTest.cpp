#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <Tolvanite/Frame/Tv.h>

#include <tests/Support/CapturedOutput.h>

namespace {

using tolvanite::tv;
using tolvanite::testing::CapturedOutput;

// A web server for one request at a time, at the port that the library calls.
class Server {
 public:
  Server() : listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const int on = 1;
    ::setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(2912);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener_, 8) != 0) {
      throw std::runtime_error("port 2912 is taken");
    }
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() { ::close(listener_); }

  bool hasCallerWithin(int milliseconds) const {
    pollfd waiting{listener_, POLLIN, 0};
    return ::poll(&waiting, 1, milliseconds) == 1;
  }

  // Waits for a request, answers it with `body` and returns its first line.
  std::string serve(std::string_view body) const {
    if (!hasCallerWithin(10'000)) return "no request came";
    const int caller = ::accept(listener_, nullptr, nullptr);
    std::string request;
    std::array<char, 4096> part{};
    while (request.find("\r\n\r\n") == std::string::npos) {
      const ssize_t count = ::read(caller, part.data(), part.size());
      if (count <= 0) break;
      request.append(part.data(), static_cast<std::size_t>(count));
    }
    const std::string answer = "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) +
                               "\r\nConnection: close\r\n\r\n" + std::string(body);
    EXPECT_EQ(::write(caller, answer.data(), answer.size()), static_cast<ssize_t>(answer.size()));
    ::close(caller);
    return request.substr(0, request.find("\r\n"));
  }

 private:
  int listener_;
};

TEST(OpenUrlOnMacSerialTest, sendsTheEncodedCommandAndPrintsTheAnswer) {
  struct Case {
    std::string_view url;
    std::string_view encoded;
  };
  constexpr std::array cases{
      Case{"https://a.b/c?d=1#e", "https:%2F%2Fa.b%2Fc%3Fd=1%23e"},
      Case{"ü%20ß \"q\" 👩‍👧",
           "%C3%BC%2520%C3%9F%20%22q%22%20%F0%9F%91%A9%E2%80%8D%F0%9F%91%A7"},
      Case{"-._~!$&'()*+,:=@ azAZ09", "-._~!$&'()*+,:=@%20azAZ09"},
      Case{";[]{}<>|\\^`", "%3B%5B%5D%7B%7D%3C%3E%7C%5C%5E%60"},
      Case{std::string_view("../\0\n\x7f", 6), "..%2F%00%0A%7F"},
      Case{"", ""},
  };
  const Server server;
  for (const auto& [url, encoded] : cases) {
    const CapturedOutput captured;
    const std::string path = "/command/open%20%22" + std::string(encoded) + "%22";
    tv::openUrlOnMac(url);
    const std::string announced = "urlString = http://localhost:2912" + path + "\n";
    EXPECT_EQ(captured.text(), announced);
    EXPECT_EQ(server.serve("geöffnet"), "GET " + path + " HTTP/1.1");
    EXPECT_EQ(captured.textContaining("geöffnet\n"), announced + "geöffnet\n");
  }
}

TEST(OpenUrlOnMacSerialTest, whatIsNotUtf8IsNeitherSentNorPrinted) {
  const Server server;
  const CapturedOutput captured;
  tv::openUrlOnMac("\xff");
  EXPECT_FALSE(server.hasCallerWithin(100));
  EXPECT_EQ(captured.text(), "");

  tv::openUrlOnMac("a");
  server.serve("\xc3");
  tv::openUrlOnMac("b");
  server.serve("end");
  EXPECT_EQ(captured.textContaining("end\n"),
            "urlString = http://localhost:2912/command/open%20%22a%22\n"
            "urlString = http://localhost:2912/command/open%20%22b%22\nend\n");
}

TEST(OpenUrlOnMacSerialTest, aRefusedConnectionIsLogged) {
  const CapturedOutput captured;
  tv::openUrlOnMac("x");
  EXPECT_THAT(captured.textContaining("\x1b[;\n"),
              testing::MatchesRegex("urlString = http://localhost:2912/command/open%20%22x%22\n"
                                    "\x1b\\[fg255,0,0;Error opening "
                                    "http://localhost:2912/command/open%20%22x%22:"
                                    "[^\n]*localhost port 2912[^\n]*\x1b\\[;\n"));
}

TEST(OpenUrlOnMacDeathSerialTest, theProcessEndsWithoutWaitingForAnAnswer) {
  // Other tests of this process may have left threads that a plain fork would lose.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const Server server;
        tv::openUrlOnMac("x");
        if (!server.hasCallerWithin(10'000)) std::exit(1);
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
