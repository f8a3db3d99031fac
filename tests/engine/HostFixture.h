// The script host with its services swapped for a test's: the progress window draws nothing,
// message boxes are recorded, and the end of the process and the main window are only noted.
#pragma once

#include "RecordingMessages.h"
#include "TempTree.h"
#include "engine/ScriptHost.h"

#include <gtest/gtest.h>
#include <optional>

struct NullBackend : ProgressBackend {
    void render(const ProgressState&) override {}
};

class HostTest : public testing::Test {
protected:
    void SetUp() override {
        saved = mEngineMain::scriptHostServices();
        mEngineMain::loadProgressWindow().setBackend(std::make_unique<NullBackend>());
        mEngineMain::ScriptHostServices& s = mEngineMain::scriptHostServices();
        s.exitProcess = [this](int status) { exitStatus = status; };
        s.showMainWindow = [this](const QString& text) { windowText = text; };
        options.programFolder = tree.path("bin");
    }
    void TearDown() override { mEngineMain::scriptHostServices() = saved; }

    mEngineMain::ScriptHostServices saved;
    RecordingMessages recorder;
    ScopedMessages scope{&recorder};
    std::optional<int> exitStatus;
    std::optional<QString> windowText;
    TempTree tree;
    mEngineMain::RunOptions options;
};
