#pragma once

#include <string>

/// Prints "kirobatch: " and `message` as a line on standard error. Bytes go out as they are.
void printMessage(const std::string& message);

/// Sends what the core and Qt report to standard error. A fatal message ends the process with status 1,
/// without a core dump.
void installDiagnostics();

/// Readies the standard streams for any caller: a closed pipe or a file size limit makes writing fail
/// instead of ending the process, and a stream that the caller has closed stays unusable instead of
/// becoming the first file that the program opens. Call it before anything opens a file.
void guardStandardStreams();
