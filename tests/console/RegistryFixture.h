#pragma once
// Shared set-up for tests of the command and variable registries: both start
// empty with their own commands registered, plus "rec", which records every
// call with its arguments.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "console/CommandRegistry.h"
#include "console/VariableRegistry.h"

class RegistryFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
        CommandRegistry::instance().registerCommands();
        VariableRegistry::instance().registerCommands();
        registerCommand("record the call", "rec", [this] {
            const CommandRegistry& r = CommandRegistry::instance();
            std::string call = r.commandName;
            for (const std::string& a : r.arguments)
                call += "|" + a;
            calls.push_back(call);
        });
    }
    void TearDown() override
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
    }

    // Runs text as the console would and returns what went to standard output.
    std::string run(const std::string& text)
    {
        std::fflush(stdout);
        ::testing::internal::CaptureStdout();
        CommandRegistry::instance().execute(text);
        std::fflush(stdout);
        return ::testing::internal::GetCapturedStdout();
    }

    std::vector<std::string> calls;
};
