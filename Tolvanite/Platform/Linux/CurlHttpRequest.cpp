#include <array>
#include <exception>
#include <list>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <curl/curl.h>
#include <signal.h>

#include <Tolvanite/Platform/HttpRequest.h>

namespace tolvanite {

namespace {

struct EasyDeleter {
  void operator()(CURL* easy) const { ::curl_easy_cleanup(easy); }
};
using Easy = std::unique_ptr<CURL, EasyDeleter>;

constexpr long patienceInSeconds = 60;
// Requests that are due and new ones end a poll early.
constexpr int longestPollInMilliseconds = 3'600'000;

// One request on its way. It stays where it was made, since libcurl holds pointers into it.
struct Request {
  Easy easy{::curl_easy_init()};
  std::string body;
  std::array<char, CURL_ERROR_SIZE> errorText{};
  std::function<void(const HttpResult&)> completion;

  HttpResult result(CURLcode code) {
    if (code == CURLE_OK) return {std::move(body), ""};
    const std::string_view detailed = errorText.data();
    return {std::nullopt, std::string(detailed.empty() ? ::curl_easy_strerror(code) : detailed)};
  }
};

std::size_t appendBody(char* bytes, std::size_t size, std::size_t count, void* body) {
  static_cast<std::string*>(body)->append(bytes, size * count);
  return size * count;
}

std::unique_ptr<Request> makeRequest(const std::string& url,
                                     std::function<void(const HttpResult&)> completion) {
  auto request = std::make_unique<Request>();
  request->completion = std::move(completion);
  CURL* easy = request->easy.get();
  if (easy == nullptr) throw std::runtime_error("curl_easy_init failed");
  ::curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
  ::curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
  ::curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
  ::curl_easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  ::curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
  ::curl_easy_setopt(easy, CURLOPT_MAXREDIRS, 16L);
  ::curl_easy_setopt(easy, CURLOPT_NOPROXY, "*");
  ::curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  // Without it the end of the process would wait for a name that is being looked up.
  ::curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
  ::curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT, patienceInSeconds);
  ::curl_easy_setopt(easy, CURLOPT_LOW_SPEED_LIMIT, 1L);
  ::curl_easy_setopt(easy, CURLOPT_LOW_SPEED_TIME, patienceInSeconds);
  ::curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, request->errorText.data());
  ::curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &appendBody);
  ::curl_easy_setopt(easy, CURLOPT_WRITEDATA, &request->body);
  ::curl_easy_setopt(easy, CURLOPT_PRIVATE, request.get());
  return request;
}

// All requests of the process, on one thread that ends with the process.
class Requests {
 public:
  static Requests& shared() {
    // Never destroyed, so that a late request finds it closed instead of gone.
    static Requests& instance = *new Requests;
    static const CloseAtExit atExit(instance);
    return instance;
  }

  Requests(const Requests&) = delete;
  Requests& operator=(const Requests&) = delete;

  void start(std::unique_ptr<Request> request) {
    const std::lock_guard lock(mutex_);
    if (ending_) return;
    fresh_.push_back(std::move(request));
    ::curl_multi_wakeup(multi_);
  }

 private:
  struct CloseAtExit {
    explicit CloseAtExit(Requests& owner) : requests(owner) {}
    CloseAtExit(const CloseAtExit&) = delete;
    CloseAtExit& operator=(const CloseAtExit&) = delete;
    ~CloseAtExit() { requests.close(); }
    Requests& requests;
  };

  Requests() {
    ::curl_global_init(CURL_GLOBAL_DEFAULT);
    multi_ = ::curl_multi_init();
    if (multi_ == nullptr) throw std::runtime_error("curl_multi_init failed");
    // The thread inherits the signal mask: signals are for the threads of the host.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    thread_ = std::thread([this] { run(); });
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  }

  void close() {
    {
      const std::lock_guard lock(mutex_);
      ending_ = true;
      ::curl_multi_wakeup(multi_);
    }
    // A completion may itself end the process; its thread cannot wait for itself.
    if (thread_.get_id() == std::this_thread::get_id()) return;
    thread_.join();
    for (const auto& request : running_) ::curl_multi_remove_handle(multi_, request->easy.get());
    running_.clear();
    fresh_.clear();
    ::curl_multi_cleanup(multi_);
  }

  void run() {
    while (takeFresh()) {
      int stillRunning = 0;
      ::curl_multi_perform(multi_, &stillRunning);
      completeFinished();
      ::curl_multi_poll(multi_, nullptr, 0, longestPollInMilliseconds, nullptr);
    }
  }

  // Adds what was started meanwhile; false when the process ends.
  bool takeFresh() {
    std::vector<std::unique_ptr<Request>> fresh;
    {
      const std::lock_guard lock(mutex_);
      if (ending_) return false;
      fresh.swap(fresh_);
    }
    for (auto& request : fresh) {
      ::curl_multi_add_handle(multi_, request->easy.get());
      running_.push_back(std::move(request));
    }
    return true;
  }

  void completeFinished() {
    int waiting = 0;
    while (const CURLMsg* message = ::curl_multi_info_read(multi_, &waiting)) {
      if (message->msg != CURLMSG_DONE) continue;
      CURL* easy = message->easy_handle;
      const CURLcode code = message->data.result;
      Request* done = nullptr;
      ::curl_easy_getinfo(easy, CURLINFO_PRIVATE, &done);
      ::curl_multi_remove_handle(multi_, easy);
      if (done->completion) done->completion(done->result(code));
      running_.remove_if([done](const auto& request) { return request.get() == done; });
    }
  }

  CURLM* multi_ = nullptr;
  std::mutex mutex_;
  std::vector<std::unique_ptr<Request>> fresh_;
  bool ending_ = false;
  std::list<std::unique_ptr<Request>> running_;
  std::thread thread_;
};

}  // namespace

void startHttpGet(const std::string& url, std::function<void(const HttpResult&)> completion) {
  Requests& requests = Requests::shared();
  requests.start(makeRequest(url, std::move(completion)));
}

}  // namespace tolvanite
