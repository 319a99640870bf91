#pragma once

#include <string>
#include <utility>

/// How a command ended: the exit status of the program, and what standard error is to say about it.
struct Outcome
{
    enum Status : int { Done = 0, Failed = 1, WrongUsage = 2 };

    Status status = Done;
    std::string message; ///< without the program's name in front; empty if there is nothing to say

    static Outcome done() { return {}; }
    static Outcome failed(std::string text) { return {Failed, std::move(text)}; }
    static Outcome wrongUsage(std::string text) { return {WrongUsage, std::move(text)}; }
};
