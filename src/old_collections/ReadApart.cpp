// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/ReadApart.h"

#include "old_collections/OldFileReader.h"
#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 mostColumns = 255;

enum class Frame : quint8 { Table, Row, UnreadableRow, Failure, End };
enum class Kind : quint8 { Null, YesNo, Whole, Floating, Amount, Day, Text };

QDataStream &operator<<(QDataStream &out, const Value &value)
{
    if (const auto *text = value.as<QString>())
        out << Kind::Text << text->toUtf8(); // not as QString: that does not tell null from empty either
    else if (const auto *yes = value.as<bool>())
        out << Kind::YesNo << *yes;
    else if (const auto *number = value.as<qint64>())
        out << Kind::Whole << *number;
    else if (const auto *floating = value.as<double>())
        out << Kind::Floating << *floating;
    else if (const auto *amount = value.as<Money>())
        out << Kind::Amount << amount->tenThousandths();
    else if (const auto *day = value.as<Date>())
        out << Kind::Day << day->serial;
    else
        out << Kind::Null;
    return out;
}

template<class Held>
Held next(QDataStream &in)
{
    Held held{};
    in >> held;
    return held;
}

QDataStream &operator>>(QDataStream &in, Value &value)
{
    switch (next<Kind>(in)) {
    case Kind::Null:
        value = {};
        break;
    case Kind::YesNo:
        value = next<bool>(in);
        break;
    case Kind::Whole:
        value = next<qint64>(in);
        break;
    case Kind::Floating:
        value = next<double>(in);
        break;
    case Kind::Amount:
        value = Money::fromTenThousandths(next<qint64>(in));
        break;
    case Kind::Day:
        value = Date{next<double>(in)};
        break;
    case Kind::Text:
        value = QString::fromUtf8(next<QByteArray>(in));
        break;
    }
    return in;
}

QDataStream &operator<<(QDataStream &out, const OldTable &table)
{
    return out << table.name << table.declaredRows << table.lastCounter << table.columns;
}

QDataStream &operator>>(QDataStream &in, OldTable &table)
{
    return in >> table.name >> table.declaredRows >> table.lastCounter >> table.columns;
}

QDataStream &operator<<(QDataStream &out, const OldRow &row)
{
    out << quint32(row.values.size());
    for (const Value &value : row.values)
        out << value;
    return out << row.unreadable;
}

QDataStream &operator>>(QDataStream &in, OldRow &row)
{
    row.values.resize(qMin(next<quint32>(in), mostColumns));
    for (Value &value : row.values)
        in >> value;
    return in >> row.unreadable;
}

/// The child's end of the pipe. Each frame goes out at once: what follows it may be the crash.
class Teller : public OldFileVisitor
{
public:
    explicit Teller(QFile &pipe) : m_pipe(pipe) {}

    void beginTable(const OldTable &table) override { tell(Frame::Table, table); }
    void row(const OldRow &row) override { tell(Frame::Row, row); }
    void unreadableRow() override { tell(Frame::UnreadableRow); }

    template<class... Part>
    void tell(Frame frame, const Part &...parts)
    {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        (out << frame << ... << parts);
        m_pipe.write(bytes);
    }

private:
    QFile &m_pipe;
};

/// A garbled file must not make the process eat up the machine. It does get enough for any file that is
/// whole.
void setLimits(const QString &path)
{
    constexpr rlim_t secondsAtLeast = 5;
    constexpr rlim_t bytesASecond = 1 << 20;
    constexpr rlim_t bytesMore = rlim_t(1) << 30;
    const auto limit = [](auto resource, rlim_t most) {
        rlimit both{most, most};
        ::setrlimit(resource, &both);
    };
    ::prctl(PR_SET_DUMPABLE, 0); // no core file, and nobody to be told of a crash
    limit(RLIMIT_CPU, secondsAtLeast + rlim_t(QFileInfo(path).size()) / bytesASecond);
    QFile memory(u"/proc/self/statm"_s); // the first number: all pages of the process
    if (memory.open(QIODevice::ReadOnly)) {
        const rlim_t pages = memory.readLine().split(' ').constFirst().toULongLong();
        limit(RLIMIT_AS, pages * rlim_t(::sysconf(_SC_PAGESIZE)) + bytesMore);
    }
}

[[noreturn]] void tellAndExit(int pipeEnd, const QString &path, const QString &wanted)
{
    // A process with windows was copied: nothing of it may be tidied up here, so no way leads out but
    // _exit().
    try {
        setLimits(path);
        // The library's warnings are for its authors.
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
        QFile pipe;
        if (!pipe.open(pipeEnd, QIODevice::WriteOnly | QIODevice::Unbuffered))
            ::_exit(1);
        Teller teller(pipe);
        try {
            if (readOldFile(path, wanted, teller))
                teller.tell(Frame::End);
        } catch (const OldFileError &error) {
            teller.tell(Frame::Failure, error.reason());
        }
        ::_exit(0);
    } catch (...) {
        ::_exit(1);
    }
}

/// The process that reads. Gone at the latest when this is.
class Child
{
public:
    explicit Child(pid_t id) : m_id(id) {}
    ~Child()
    {
        ::kill(m_id, SIGKILL);
        while (::waitpid(m_id, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    Q_DISABLE_COPY(Child)

private:
    pid_t m_id;
};

/// Hands the child's next frame to the visitor; false when it was no row or table.
bool pass(Frame frame, QDataStream &in, OldFileVisitor &visitor)
{
    if (frame == Frame::Table) {
        OldTable table;
        in >> table;
        if (in.status() == QDataStream::Ok)
            visitor.beginTable(table);
    } else if (frame == Frame::Row) {
        OldRow row;
        in >> row;
        if (in.status() == QDataStream::Ok)
            visitor.row(row);
    } else if (frame == Frame::UnreadableRow) {
        visitor.unreadableRow();
    }
    return in.status() == QDataStream::Ok;
}

} // namespace

bool readOldFileApart(const QString &path, const QString &wanted, OldFileVisitor &visitor)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw OldFileError(qt_error_string(errno));
    const pid_t id = ::fork();
    if (id == 0) {
        ::close(ends[0]);
        tellAndExit(ends[1], path, wanted);
    }
    const int failure = errno;
    ::close(ends[1]);
    QFile pipe;
    if (id < 0 || !pipe.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(ends[0]);
        throw OldFileError(qt_error_string(failure));
    }
    const Child child(id);
    QDataStream in(&pipe);
    for (;;) {
        const auto frame = next<Frame>(in);
        if (in.status() != QDataStream::Ok)
            return false;
        if (frame == Frame::End)
            return true;
        if (frame == Frame::Failure)
            throw OldFileError(next<QString>(in));
        if (!pass(frame, in, visitor))
            return false;
    }
}

} // namespace obelmark
