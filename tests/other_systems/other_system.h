#pragma once

// Included before a source file, so that the compiler sees its branches for other systems. The headers that
// ask for the system themselves come first; after them the system looks like one that is neither Unix nor
// Linux, or with QUARLIN_LIKE_MACOS, like macOS.

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QUrl>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include <sys/stat.h>

#undef Q_OS_LINUX
#ifdef QUARLIN_LIKE_MACOS
#define Q_OS_DARWIN
#define st_mtimespec st_mtim
#define st_ctimespec st_ctim
#else
#undef Q_OS_UNIX
#undef __GLIBC__
#define Q_OS_WIN
#endif
