// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/SafeFile.h"

#include "runtime/NumberedError.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace obelmark {

using namespace Qt::StringLiterals;

static constexpr qsizetype bufferSize = 64 * 1024;
static constexpr int mostLinks = 40; // as the kernel's own limit

static RuntimeErrorNumber numberFor(int reason)
{
    switch (reason) {
    case ENOSPC:
    case EDQUOT:
        return DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
        return PermissionDenied;
    case ENOENT:
    case ENOTDIR:
        return PathNotFound;
    default:
        return PathFileAccess;
    }
}

static NumberedError fileError(int reason, const QString &path)
{
    const NumberedError error = runtimeError(numberFor(reason));
    QString description = u"%1: '%2'"_s.arg(error.description(), path);
    if (error.number() == PathFileAccess) // the others are the reason
        description += u" (%1)"_s.arg(qt_error_string(reason));
    return NumberedError(error.number(), description);
}

template<class Call>
static auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

namespace {

class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int number() const { return m_number; }
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

QString folderOf(const QString &path)
{
    return QFileInfo(path).path();
}

/// The file that is meant by a path which may be a link, also one that leads nowhere yet.
QString linkedFile(const QString &path)
{
    QString file = path;
    for (int links = 0; links < mostLinks; ++links) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t size =
            ::readlink(QFile::encodeName(file).constData(), target.data(), size_t(target.size()));
        if (size < 0)
            return file;
        const QString next = QFile::decodeName(target.first(size));
        file = next.startsWith(u'/') ? next : folderOf(file) + u'/' + next;
    }
    throw fileError(ELOOP, path);
}

/// What is known of the file to be replaced; nothing when there is none.
std::optional<struct stat> existing(const QString &file, const QString &path)
{
    const QByteArray name = QFile::encodeName(file);
    struct stat status
    {
    };
    if (::stat(name.constData(), &status) != 0) {
        if (errno == ENOENT)
            return {};
        throw fileError(errno, path);
    }
    if (S_ISDIR(status.st_mode))
        throw fileError(EISDIR, path);
    if (!S_ISREG(status.st_mode)) // a device must not be renamed away
        throw fileError(EINVAL, path);
    if (::faccessat(AT_FDCWD, name.constData(), W_OK, AT_EACCESS) != 0)
        throw fileError(errno, path);
    return status;
}

/// Not named after the target, whose name may already be as long as the file system takes.
QByteArray randomName(const QString &folder)
{
    const quint64 number = QRandomGenerator::system()->generate64();
    // The folder's name is any text, also one that holds a "%1".
    return QFile::encodeName(folder + u"/.obelmark-%1.tmp"_s.arg(number, 16, 16, QLatin1Char('0')));
}

} // namespace

struct SafeFile::Private
{
    Private(const QString &givenPath, const QString &temporaryName, bool keepsTimes)
        : path(givenPath), target(linkedFile(givenPath)), folder(folderOf(target)), keepTimes(keepsTimes),
          descriptor(create(temporaryName))
    {
    }

    ~Private()
    {
        if (!temporary.isEmpty())
            ::unlink(temporary.constData());
    }

    int create(const QString &givenName)
    {
        replaced = existing(target, path);
        int number = -1;
        do {
            temporary =
                givenName.isEmpty() ? randomName(folder) : QFile::encodeName(folder + u'/' + givenName);
            if (!givenName.isEmpty())
                ::unlink(temporary.constData());
            number = uninterrupted([this] {
                // A file that others must not read is not open to them under its temporary name either.
                return ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                              replaced ? 0600 : 0666);
            });
        } while (number < 0 && errno == EEXIST && givenName.isEmpty());
        if (number < 0) {
            const int reason = errno;
            temporary.clear();
            throw fileError(reason, path);
        }
        if (replaced)
            takeOver(number, *replaced);
        return number;
    }

    static void takeOver(int number, const struct stat &replaced)
    {
        // Only root may give a file away, and some file systems know neither owner nor mode: the contents
        // count.
        if (::fchown(number, replaced.st_uid, replaced.st_gid) != 0)
            errno = 0;
        if (::fchmod(number, replaced.st_mode & 07777) != 0)
            errno = 0;
    }

    [[noreturn]] void fail(int reason)
    {
        failure = reason;
        throw fileError(reason, path);
    }

    void flushBuffer()
    {
        qsizetype written = 0;
        while (written < buffer.size()) {
            const ssize_t count = uninterrupted([this, written] {
                return ::write(descriptor.number(), buffer.constData() + written,
                               size_t(buffer.size() - written));
            });
            if (count < 0)
                fail(errno);
            written += count;
        }
        buffer.resize(0);
    }

    const QString path;
    const QString target;
    const QString folder;
    const bool keepTimes;
    std::optional<struct stat> replaced;
    QByteArray temporary; ///< empty once it has been put in place
    QByteArray buffer;
    int failure = 0;
    Descriptor descriptor;
};

SafeFile::SafeFile(const QString &path, const QString &temporaryName, bool keepTimes)
    : d(std::make_unique<Private>(path, temporaryName, keepTimes))
{
}

SafeFile::~SafeFile() = default;

void SafeFile::write(const QByteArray &bytes)
{
    if (d->failure != 0)
        d->fail(d->failure);
    d->buffer.append(bytes);
    if (d->buffer.size() >= bufferSize)
        d->flushBuffer();
}

void SafeFile::finish()
{
    write({});
    d->flushBuffer();
    if (d->keepTimes && d->replaced) {
        // What a file system does not know does not stop the file.
        const timespec times[] = {d->replaced->st_atim, d->replaced->st_mtim};
        if (::futimens(d->descriptor.number(), times) != 0)
            errno = 0;
    }
    if (uninterrupted([this] { return ::fsync(d->descriptor.number()); }) != 0)
        d->fail(errno);
    // Some network file systems tell only now that there was no room.
    if (::close(d->descriptor.release()) != 0 && errno != EINTR)
        d->fail(errno);
}

void SafeFile::commit()
{
    if (d->descriptor.number() >= 0)
        finish();
    if (::rename(d->temporary.constData(), QFile::encodeName(d->target).constData()) != 0)
        d->fail(errno);
    d->temporary.clear();
    flushToDisk(d->folder);
}

void removeUnfinishedFile(const QString &path)
{
    const QFileInfo file(path);
    if (file.isFile() && file.lastModified() < QDateTime::currentDateTime().addSecs(-3600))
        QFile::remove(path);
}

void removeUnfinishedFiles(const QString &folder)
{
    const QStringList names = QDir(folder).entryList({u".obelmark-*.tmp"_s}, QDir::Files | QDir::Hidden);
    for (const QString &name : names)
        removeUnfinishedFile(folder + u'/' + name);
}

void flushToDisk(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const Descriptor descriptor(
        uninterrupted([&name] { return ::open(name.constData(), O_RDONLY | O_CLOEXEC); }));
    if (descriptor.number() < 0)
        throw fileError(errno, path);
    // EINVAL: a file system that cannot flush this kind of thing has nothing to flush.
    if (uninterrupted([&descriptor] { return ::fsync(descriptor.number()); }) != 0 && errno != EINVAL)
        throw fileError(errno, path);
}

} // namespace obelmark
