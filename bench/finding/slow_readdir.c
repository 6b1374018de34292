/* For answering.py: a disk that sleeps. The first entry of a folder named "slow" takes five seconds. */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <limits.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

static void sleep_in_slow(DIR *folder)
{
    char link[64], path[PATH_MAX];
    snprintf(link, sizeof link, "/proc/self/fd/%d", dirfd(folder));
    ssize_t length = readlink(link, path, sizeof path - 1);
    if (length < 5) return;
    path[length] = 0;
    if (strcmp(path + length - 5, "/slow") == 0 && telldir(folder) == 0) sleep(5);
}

struct dirent *readdir(DIR *folder)
{
    static struct dirent *(*real)(DIR *);
    if (!real) real = (struct dirent * (*)(DIR *)) dlsym(RTLD_NEXT, "readdir");
    sleep_in_slow(folder);
    return real(folder);
}

struct dirent64 *readdir64(DIR *folder)
{
    static struct dirent64 *(*real)(DIR *);
    if (!real) real = (struct dirent64 * (*)(DIR *)) dlsym(RTLD_NEXT, "readdir64");
    sleep_in_slow(folder);
    return real(folder);
}
