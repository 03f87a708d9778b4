// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/qt/SecondStart.h"

#include <QFile>
#include <QSocketNotifier>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestWaitMs = 180;

struct Address
{
    sockaddr_un name{};
    socklen_t size = 0; ///< 0 for a folder that is not there
};

/// In the kernel's own name space: no file stays behind when the program is killed, and none is needed where
/// the folder's file system has no sockets. By its number the folder is the same on whatever path.
Address addressOf(const QString &folder)
{
    Address address;
    struct stat status
    {
    };
    if (::stat(QFile::encodeName(folder).constData(), &status) != 0)
        return address;
    const QByteArray name =
        u"obelmark/%1/%2/%3"_s.arg(::getuid()).arg(status.st_dev).arg(status.st_ino).toUtf8();
    address.name.sun_family = AF_UNIX;
    std::memcpy(address.name.sun_path + 1, name.constData(), size_t(name.size())); // behind a zero byte
    address.size = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + size_t(name.size()));
    return address;
}

int newSocket()
{
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

/// Every user may take any name.
bool isOwnProgram(int socket)
{
    ucred other{};
    socklen_t size = sizeof other;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 && other.uid == ::getuid();
}

} // namespace

SecondStart::SecondStart(const QString &folder)
{
    const Address address = addressOf(folder);
    m_socket = newSocket();
    if (address.size == 0 ||
        ::bind(m_socket, reinterpret_cast<const sockaddr *>(&address.name), address.size) != 0 ||
        ::listen(m_socket, SOMAXCONN) != 0)
        return;
    auto *notifier = new QSocketNotifier(m_socket, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &SecondStart::answer);
}

SecondStart::~SecondStart()
{
    delete findChild<QSocketNotifier *>();
    if (m_socket >= 0)
        ::close(m_socket);
}

void SecondStart::answer()
{
    const int second = ::accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
    if (second < 0)
        return;
    if (isOwnProgram(second))
        emit knocked();
    ::close(second); // which is the answer
}

void SecondStart::knock(const QString &folder)
{
    const Address address = addressOf(folder);
    const int socket = newSocket();
    if (socket < 0)
        return;
    if (address.size > 0 &&
        ::connect(socket, reinterpret_cast<const sockaddr *>(&address.name), address.size) == 0 &&
        isOwnProgram(socket)) {
        pollfd answered{.fd = socket, .events = POLLIN, .revents = 0};
        ::poll(&answered, 1, longestWaitMs);
    }
    ::close(socket);
}

} // namespace obelmark
