#pragma once
// Shared set-up for tests of the registries and of what runs on them: both
// registries start empty with their own commands registered, plus "rec",
// which records every call with its arguments; files are read from a scratch
// directory, not from an archive. HeadlessGameFixture adds a game with null
// renderer and sound.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "console/CommandRegistry.h"
#include "console/Console.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "render/NullRenderer.h"
#include "resources/ResourceManager.h"
#include "resources/TempDir.h"
#include "sound/NullSound.h"

using Calls = std::vector<std::string>;

class RegistryFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
        CommandRegistry::instance().registerCommands();
        VariableRegistry::instance().registerCommands();
        ResourceManager::instance().clearArchives();
        record("rec");
    }
    void TearDown() override
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
        ResourceManager::instance().clearArchives();
    }

    // Registers `name` as a command that notes each call as "name|arg|arg".
    void record(const std::string& name)
    {
        registerCommand("record the call", name, [this] {
            const CommandRegistry& r = CommandRegistry::instance();
            std::string call = r.commandName;
            for (const std::string& a : r.arguments)
                call += "|" + a;
            calls.push_back(call);
        });
    }

    // Runs text as the console would and returns what went to standard output.
    std::string run(const std::string& text)
    {
        return stdoutOf([&] { CommandRegistry::instance().execute(text); });
    }

    // The calls noted since the last look.
    Calls takeCalls()
    {
        Calls out;
        out.swap(calls);
        return out;
    }

    TempDir dir;
    Calls calls;
};

class HeadlessGameFixture : public RegistryFixture {
protected:
    void TearDown() override
    {
        game.reset();
        RegistryFixture::TearDown();
    }
    Console& console() { return *game->getConsole(); }
    // The console's lines, oldest first.
    std::vector<std::string> consoleLines() const
    {
        std::vector<std::string> out;
        for (const auto& line : game->getConsole()->getLines())
            out.push_back(line->text);
        return out;
    }

    std::unique_ptr<Game> game =
        std::make_unique<Game>(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
};
