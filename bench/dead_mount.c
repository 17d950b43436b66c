/* Makes everything below a folder as a mount whose server is gone: whoever asks for it waits for ever.
 * Preloaded into the player by bench/recent. TANDREL_DEAD_FOLDER names the folder; each question that is left without
 * an answer adds a byte to the file TANDREL_DEAD_NOTES, from which the bench knows that somebody has asked. */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

static void wait_if_dead(const char* path)
{
    const char* folder = getenv("TANDREL_DEAD_FOLDER");
    if (folder == NULL || path == NULL || strncmp(path, folder, strlen(folder)) != 0)
        return;
    const char* notes = getenv("TANDREL_DEAD_NOTES");
    if (notes != NULL) {
        const long file = syscall(SYS_openat, AT_FDCWD, notes, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        syscall(SYS_write, file, "?", 1);
        syscall(SYS_close, file);
    }
    for (;;)
        pause();
}

/* A function of this name that waits, or does what it always did. */
#define GUARDED(result, name, path, parameters, arguments)                                                             \
    result name parameters                                                                                             \
    {                                                                                                                  \
        result(*real) parameters = (result(*) parameters)dlsym(RTLD_NEXT, #name);                                      \
        wait_if_dead(path);                                                                                            \
        return real arguments;                                                                                         \
    }

GUARDED(int, stat, path, (const char* path, struct stat* facts), (path, facts))
GUARDED(int, stat64, path, (const char* path, struct stat64* facts), (path, facts))
GUARDED(int, lstat, path, (const char* path, struct stat* facts), (path, facts))
GUARDED(int, lstat64, path, (const char* path, struct stat64* facts), (path, facts))
GUARDED(int, fstatat, path, (int at, const char* path, struct stat* facts, int flags), (at, path, facts, flags))
GUARDED(int, fstatat64, path, (int at, const char* path, struct stat64* facts, int flags), (at, path, facts, flags))
GUARDED(int, statx, path, (int at, const char* path, int flags, unsigned mask, struct statx* facts),
        (at, path, flags, mask, facts))
GUARDED(int, access, path, (const char* path, int mode), (path, mode))
GUARDED(int, faccessat, path, (int at, const char* path, int mode, int flags), (at, path, mode, flags))
GUARDED(DIR*, opendir, path, (const char* path), (path))

#define GUARDED_OPEN(name, at_parameter, at_argument)                                                                  \
    int name(at_parameter const char* path, int flags, ...)                                                            \
    {                                                                                                                  \
        int (*real)(at_parameter const char*, int, ...) =                                                              \
            (int (*)(at_parameter const char*, int, ...))dlsym(RTLD_NEXT, #name);                                      \
        va_list more;                                                                                                  \
        va_start(more, flags);                                                                                         \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;                           \
        va_end(more);                                                                                                  \
        wait_if_dead(path);                                                                                            \
        return real(at_argument path, flags, mode);                                                                    \
    }
#define NOTHING
#define AT_PARAMETER int at,
#define AT_ARGUMENT at,

GUARDED_OPEN(open, NOTHING, NOTHING)
GUARDED_OPEN(open64, NOTHING, NOTHING)
GUARDED_OPEN(openat, AT_PARAMETER, AT_ARGUMENT)
GUARDED_OPEN(openat64, AT_PARAMETER, AT_ARGUMENT)
