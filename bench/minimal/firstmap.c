/* SPDX-License-Identifier: GPL-3.0-or-later
 * SPDX-FileCopyrightText: 2026 The Mensura developers
 *
 * firstmap COMMAND [ARGS...]: starts the command and prints the milliseconds from its start to
 * the moment the X server maps its first top-level window, then the command's resident memory
 * one second later (KiB), and ends it. Meant for an X server without a window manager, where
 * top-level windows are children of the root window; override-redirect windows (tooltips,
 * menus) do not count. No polling: the root window's SubstructureNotify events are watched.
 */
#include <X11/Xlib.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/select.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static double now_ms(void)
{
    struct timespec ts;
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return ts.tv_sec * 1000.0 + ts.tv_nsec / 1e6;
}

static long resident_kib(pid_t pid)
{
    char path[64], line[256];
    long kib = -1;
    snprintf(path, sizeof path, "/proc/%d/status", (int)pid);
    FILE *f = fopen(path, "r");
    if (!f)
        return -1;
    while (fgets(line, sizeof line, f))
        if (strncmp(line, "VmRSS:", 6) == 0)
            kib = strtol(line + 6, NULL, 10);
    fclose(f);
    return kib;
}

int main(int argc, char **argv)
{
    if (argc < 2) {
        fprintf(stderr, "usage: firstmap COMMAND [ARGS...]\n");
        return 2;
    }
    Display *display = XOpenDisplay(NULL);
    if (!display) {
        fprintf(stderr, "firstmap: cannot open the display\n");
        return 2;
    }
    Window root = DefaultRootWindow(display);
    XSelectInput(display, root, SubstructureNotifyMask);
    XSync(display, False);

    const double start = now_ms();
    pid_t child = fork();
    if (child == 0) {
        execvp(argv[1], argv + 1);
        _exit(127);
    }
    const int fd = ConnectionNumber(display);
    double mapped = -1;
    while (mapped < 0) {
        while (XPending(display)) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == MapNotify && !event.xmap.override_redirect) {
                mapped = now_ms() - start;
                break;
            }
        }
        if (mapped >= 0)
            break;
        fd_set fds;
        FD_ZERO(&fds);
        FD_SET(fd, &fds);
        struct timeval timeout = { 30, 0 };
        if (select(fd + 1, &fds, NULL, NULL, &timeout) <= 0) {
            fprintf(stderr, "firstmap: no window within 30 s\n");
            kill(child, SIGKILL);
            return 1;
        }
    }
    sleep(1);
    const long rss = resident_kib(child);
    kill(child, SIGTERM);
    waitpid(child, NULL, 0);
    printf("%.1f %ld\n", mapped, rss);
    return 0;
}
