#pragma once

#include <functional>
#include <string>

/// Text of the fatal error that `work` ends in, or "no fatal error". The process goes on.
std::string fatalErrorOf(const std::function<void()>& work);
