#include "platform/linux/system/instance_socket.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <thread>
#include <utility>

#include "platform/linux/system/instance_name.h"
#include "platform/linux/system/user_folders.h"

namespace nerolith::system {

using platform::StartRequest;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

/// More than any command line that the system lets through.
constexpr std::size_t kLongestPacket = std::size_t{192} * 1024;
/// A run that connected sends at once; one that does not must not hold up the window.
constexpr int kPacketPatience = 200;
constexpr milliseconds kRetry(20);
constexpr char kTaken = 1;

/// Closed with its scope.
struct OpenSocket {
  explicit OpenSocket(int value) : value(value) {}
  ~OpenSocket() {
    if (value >= 0) close(value);
  }
  OpenSocket(const OpenSocket&) = delete;
  OpenSocket& operator=(const OpenSocket&) = delete;
  int value;
};

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

/// By the folder's descriptor: a socket's address has room for 107 bytes only.
sockaddr_un addressIn(int folder, const std::string& name) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = "/proc/self/fd/" + std::to_string(folder) + "/" + name + ".socket";
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

bool isReadable(int descriptor, milliseconds within) {
  pollfd watched{descriptor, POLLIN, 0};
  return poll(&watched, 1, static_cast<int>(within.count())) > 0;
}

std::string packetOf(const StartRequest& request) {
  return request.directory + '\0' + request.commandLine;
}

std::optional<StartRequest> requestOf(std::string_view packet) {
  const auto end = packet.find('\0');
  if (end == packet.npos) return std::nullopt;
  return StartRequest{std::string(packet.substr(0, end)), std::string(packet.substr(end + 1))};
}

}  // namespace

InstanceSocket::Place InstanceSocket::usualPlace() {
  return {runtimeFolder(), instanceName(variable("WAYLAND_DISPLAY"), variable("DISPLAY"))};
}

InstanceSocket::InstanceSocket(Place place, Watch watch)
    : place_(std::move(place)), watch_(std::move(watch)) {
  if (!place_.folder.empty())
    folder_ = open(place_.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

InstanceSocket::~InstanceSocket() {
  for (const int descriptor : {socket_, lock_, folder_})
    if (descriptor >= 0) close(descriptor);
}

bool InstanceSocket::claim(const StartRequest& request) {
  const auto latest = steady_clock::now() + place_.patience;
  while (!lock()) {
    if (handOver(request, latest) == Delivery::Taken) return false;
    // The first run is coming up or going away; or it hangs.
    if (steady_clock::now() >= latest) return true;
    std::this_thread::sleep_for(kRetry);
  }
  openSocket();
  return true;
}

/// False only where another run holds the lock.
bool InstanceSocket::lock() {
  if (folder_ < 0) return true;
  const std::string name = place_.name + ".lock";
  const int opened = openat(folder_, name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (opened < 0) return true;
  if (flock(opened, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {
    lock_ = opened;
    return true;
  }
  close(opened);
  return false;
}

void InstanceSocket::openSocket() {
  if (lock_ < 0) return;
  unlinkat(folder_, (place_.name + ".socket").c_str(), 0);
  const int made = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const sockaddr_un address = addressIn(folder_, place_.name);
  const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
  if (made >= 0 && bind(made, generic, sizeof address) == 0 && ::listen(made, 16) == 0)
    socket_ = made;
  else if (made >= 0)
    close(made);
}

InstanceSocket::Delivery InstanceSocket::handOver(const StartRequest& request,
                                                  steady_clock::time_point latest) const {
  const OpenSocket to(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
  const sockaddr_un address = addressIn(folder_, place_.name);
  // Even connecting waits where too many are in the queue already.
  const timeval patience{std::chrono::ceil<std::chrono::seconds>(place_.patience).count(), 0};
  setsockopt(to.value, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
  if (connect(to.value, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    return Delivery::NobodyThere;
  const std::string packet = packetOf(request);
  if (send(to.value, packet.data(), packet.size(), MSG_NOSIGNAL) < 0) return Delivery::NobodyThere;
  const auto left = std::chrono::ceil<milliseconds>(latest - steady_clock::now());
  char answer = 0;
  const bool answered = left.count() > 0 && isReadable(to.value, left) &&
                        recv(to.value, &answer, 1, MSG_DONTWAIT) == 1 && answer == kTaken;
  return answered ? Delivery::Taken : Delivery::NobodyThere;
}

void InstanceSocket::listen(std::function<void(const StartRequest&)> laterStart) {
  laterStart_ = std::move(laterStart);
  if (socket_ < 0) return;
  watch_(socket_, [this] {
    if (const auto request = take()) laterStart_(*request);
  });
}

/// A run that gave up waiting has gone on by itself: what it wanted is not done twice.
std::optional<StartRequest> InstanceSocket::take() const {
  const OpenSocket from(accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC));
  if (from.value < 0 || !isReadable(from.value, milliseconds(kPacketPatience))) return std::nullopt;
  std::string packet(kLongestPacket, '\0');
  const ssize_t length = recv(from.value, packet.data(), packet.size(), MSG_DONTWAIT);
  if (length <= 0) return std::nullopt;
  auto request = requestOf(std::string_view(packet).substr(0, std::size_t(length)));
  if (!request || send(from.value, &kTaken, 1, MSG_NOSIGNAL) != 1) return std::nullopt;
  return request;
}

}  // namespace nerolith::system
