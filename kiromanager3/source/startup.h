#pragma once

#include <QObject>

#include <functional>
#include <memory>

class AppConfig;

/// Builds and shows the interface. What it returns is kept while the event loop runs and is destroyed
/// before the application object.
using InterfaceFactory = std::function<std::unique_ptr<QObject>()>;

/// The program from its first step to the end of its event loop; gives the exit status. In this order:
/// paths of the command line or their defaults, backup of the old log, message handler, application
/// object, locale, interface, event loop.
int runKiroManager(int argc, char** argv, const InterfaceFactory& createInterface);

/// Takes the paths behind "-config", "-signals" and "-log", in the local 8-bit encoding, and the switch
/// "-developer_version" into `config`. A file whose path is not given or cannot be used gets its default.
/// Every argument is looked at, the values of switches too; `argv[0]` is not.
void readCommandLine(int argc, const char* const* argv, AppConfig& config);
