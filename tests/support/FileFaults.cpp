// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/FileFaults.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct
{
    bool armed = false;
    obelmark::Fault fault = {};
    int at = 0;
    int changes = 0;
} state;

bool isToFail()
{
    if (!state.armed || ++state.changes < state.at)
        return false;
    if (state.fault == obelmark::Fault::Killed)
        ::raise(SIGKILL);
    return state.fault == obelmark::Fault::FailsFromThenOn || state.changes == state.at;
}

template<class Result, class... Arguments>
Result change(const char *name, int reason, Arguments... arguments)
{
    if (!isToFail())
        return reinterpret_cast<Result (*)(Arguments...)>(::dlsym(RTLD_NEXT, name))(arguments...);
    errno = reason;
    return -1;
}

} // namespace

// These take the place of the C library's functions in this program and in the libraries that it has loaded.
extern "C" {
ssize_t write(int file, const void *bytes, size_t size)
{
    return change<ssize_t>("write", ENOSPC, file, bytes, size);
}
ssize_t pwrite64(int file, const void *bytes, size_t size, off64_t offset)
{
    return change<ssize_t>("pwrite64", ENOSPC, file, bytes, size, offset);
}
int fsync(int file)
{
    return change<int>("fsync", EIO, file);
}
int rename(const char *from, const char *to) noexcept
{
    return change<int>("rename", EACCES, from, to);
}
int unlink(const char *path) noexcept
{
    return change<int>("unlink", EACCES, path);
}
}

void obelmark::killAtChange(int change)
{
    state = {.armed = true, .fault = Fault::Killed, .at = change};
}

bool obelmark::runWithFault(Fault fault, int change, const std::function<void()> &work)
{
    state = {.armed = true, .fault = fault, .at = change};
    const pid_t child = fault == Fault::Killed ? ::fork() : -1;
    if (child <= 0)
        work();
    if (child == 0)
        std::_Exit(EXIT_SUCCESS);
    state.armed = false;
    int status = 0;
    return child > 0 ? ::waitpid(child, &status, 0) == child && WIFSIGNALED(status) : state.changes >= change;
}
