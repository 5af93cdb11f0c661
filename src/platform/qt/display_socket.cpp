#include "platform/qt/display_socket.h"

#include <QByteArrayList>
#include <QtEndian>

#include <X11/X.h>
#include <X11/Xauth.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <memory>
#include <utility>

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace qtbackend {

namespace {

constexpr int PATIENCE = 2000; ///< milliseconds that a display has for each step

/// A connection on which no step waits for ever.
class CSocket {
public:
    CSocket(const sockaddr* address, socklen_t length)
        : m_nFile(socket(address->sa_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
        const bool started = connect(m_nFile, address, length) == 0 || errno == EINPROGRESS;
        m_bConnected = started && waitFor(POLLOUT) && !hasFailed();
    }
    ~CSocket() {
        if (m_nFile >= 0) {
            close(m_nFile);
        }
    }
    CSocket(const CSocket&) = delete;
    CSocket& operator=(const CSocket&) = delete;

    bool isConnected() const { return m_bConnected; }
    bool send(const QByteArray& bytes) const {
        return ::send(m_nFile, bytes.data(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL) ==
               bytes.size();
    }
    /// The next byte, or -1.
    int receive() const {
        unsigned char byte = 0;
        return waitFor(POLLIN) && recv(m_nFile, &byte, 1, 0) == 1 ? byte : -1;
    }

private:
    bool waitFor(short events) const {
        pollfd waited = {m_nFile, events, 0};
        return poll(&waited, 1, PATIENCE) == 1;
    }
    bool hasFailed() const {
        int error = 0;
        socklen_t size = sizeof error;
        return getsockopt(m_nFile, SOL_SOCKET, SO_ERROR, &error, &size) != 0 || error != 0;
    }

    int m_nFile;
    bool m_bConnected = false;
};

/// Whose key is asked for: the family and the address as the authority file writes them.
struct Authority {
    unsigned short family = FamilyLocal;
    QByteArray address;
};

constexpr char COOKIE[] = "MIT-MAGIC-COOKIE-1";

void appendPadded(QByteArray& request, const QByteArray& bytes) {
    request += bytes + QByteArray((4 - bytes.size() % 4) % 4, '\0');
}

/// The first request of a connection, for version 11.0, least significant byte first.
QByteArray setupRequest(const QByteArray& number, const Authority& authority) {
    char* names[] = {const_cast<char*>(COOKIE)};
    const int lengths[] = {sizeof COOKIE - 1};
    const std::unique_ptr<Xauth, decltype(&XauDisposeAuth)> found(
        XauGetBestAuthByAddr(authority.family, static_cast<unsigned short>(authority.address.size()),
                             authority.address.data(), static_cast<unsigned short>(number.size()),
                             number.data(), 1, names, lengths),
        &XauDisposeAuth);
    const QByteArray name = found != nullptr ? QByteArray(found->name, found->name_length) : QByteArray();
    const QByteArray key = found != nullptr ? QByteArray(found->data, found->data_length) : QByteArray();
    std::array<quint16_le, 6> head{};
    head[0] = 'l';
    head[1] = 11;
    head[3] = static_cast<quint16>(name.size());
    head[4] = static_cast<quint16>(key.size());
    QByteArray request(reinterpret_cast<const char*>(head.data()), sizeof head);
    appendPadded(request, name);
    appendPadded(request, key);
    return request;
}

/// A server accepts a connection with a 1.
bool accepts(const sockaddr* address, socklen_t length, const QByteArray& number,
             const Authority& authority) {
    const CSocket server(address, length);
    return server.isConnected() && server.send(setupRequest(number, authority)) && server.receive() == 1;
}

Authority localAuthority() {
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    return {FamilyLocal, name.data()};
}

sockaddr_un unixAddress(const QByteArray& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto size =
        std::min<std::size_t>(static_cast<std::size_t>(path.size()), sizeof address.sun_path - 1);
    std::memcpy(static_cast<void*>(&address.sun_path), path.data(), size);
    return address;
}

/// A name that begins with a zero byte stands in no folder.
bool acceptsLocally(const QByteArray& path, const QByteArray& number) {
    const sockaddr_un address = unixAddress(path);
    const auto length =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) + static_cast<socklen_t>(path.size());
    return accepts(reinterpret_cast<const sockaddr*>(&address), length, number, localAuthority());
}

/// A server on this machine keeps its key under the machine's name.
Authority authorityOf(const sockaddr& address) {
    if (address.sa_family == AF_INET) {
        const auto& bytes = reinterpret_cast<const sockaddr_in&>(address).sin_addr;
        const bool loopback = ntohl(bytes.s_addr) >> 24U == 127;
        return loopback ? localAuthority()
                        : Authority{FamilyInternet,
                                    QByteArray(reinterpret_cast<const char*>(&bytes), sizeof bytes)};
    }
    const auto& bytes = reinterpret_cast<const sockaddr_in6&>(address).sin6_addr;
    return IN6_IS_ADDR_LOOPBACK(&bytes)
               ? localAuthority()
               : Authority{FamilyInternet6, QByteArray(reinterpret_cast<const char*>(&bytes), sizeof bytes)};
}

bool acceptsRemotely(const QByteArray& host, const QByteArray& number) {
    constexpr int FIRST_PORT = 6000;
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* list = nullptr;
    const QByteArray port = QByteArray::number(FIRST_PORT + number.toInt());
    if (getaddrinfo(host.data(), port.data(), &wanted, &list) != 0) {
        return false;
    }
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owned(list, &freeaddrinfo);
    for (const addrinfo* one = list; one != nullptr; one = one->ai_next) {
        if (accepts(one->ai_addr, one->ai_addrlen, number, authorityOf(*one->ai_addr))) {
            return true;
        }
    }
    return false;
}

} // namespace

bool answersAsX11(const QByteArray& display) {
    const qsizetype colon = display.lastIndexOf(':');
    const QByteArray number = display.mid(colon + 1).split('.').first();
    bool isNumber = false;
    number.toUInt(&isNumber);
    if (colon < 0 || !isNumber) {
        return false;
    }
    const QByteArray host = display.left(colon);
    if (!host.isEmpty() && host != "unix") {
        return acceptsRemotely(host, number);
    }
    const QByteArray path = "/tmp/.X11-unix/X" + number;
    return acceptsLocally('\0' + path, number) || acceptsLocally(path, number);
}

bool isWaylandThere() {
    QByteArray path =
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? "wayland-0" : qgetenv("WAYLAND_DISPLAY");
    if (!path.startsWith('/')) {
        path.prepend(qgetenv("XDG_RUNTIME_DIR") + '/');
    }
    const sockaddr_un address = unixAddress(path);
    return CSocket(reinterpret_cast<const sockaddr*>(&address), sizeof address).isConnected();
}

} // namespace qtbackend
