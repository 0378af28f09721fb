#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// Runs the program at the path that comes first (PATH is not searched) with all the texts as its arguments, the path
// itself included, in this process's environment, ignoring no signal but those that this process was started to ignore
// and with the limit of open files that this process was started with, and waits for it. Its descriptors 0, 1 and 2 are
// "/dev/null", write-only. True exactly when it exited by itself with code 0. Blocks; any thread.
bool runChildProcess(const QStringList& arguments);

// The same with the open file, above 2, as its standard input: its exit code, or none when it could not be started or
// was killed.
std::optional<int> exitCodeOfChildProcess(const QStringList& arguments, int standardInput);

// Whether the path leads to a regular file that this user may execute.
bool isExecutableFile(const QString& path);
