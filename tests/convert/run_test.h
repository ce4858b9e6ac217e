#pragma once

#include "convert/converter.h"
#include "tests/convert/recording_window.h"
#include "tests/convert/scripted_capture.h"
#include "tests/support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vistrel::test
{

/// A converter between a recording window, files in memory with the folder /out/, and a scripted component.
class RunTest : public testing::Test
{
protected:
    RunTest() { files.folders.insert(u"/out/"_s); }

    /// Presses Convert with these lines in the list.
    void convert(const QStringList& lines)
    {
        window.list = lines.join(u"\r\n"_s);
        converter.fbConvert_Click();
    }

    [[nodiscard]] bool logged(const std::string& call) const
    {
        return ("\n" + log.lines()).find("\n" + call + "\n") != std::string::npos;
    }

    /// Convert was pressed, and the window never came back to its idle state.
    [[nodiscard]] bool staysRunning() const
    {
        return logged("disable fbConvert") && !logged("enable fbConvert") && !logged(completion);
    }

    [[nodiscard]] QStringList written() const { return files.contents.keys(); }

    const std::string completion = "tell \"Conversion complete successfully!       \"";
    CallLog log;
    RecordingWindow window{log};
    FixedSettings& config = *window.config;
    MemoryFiles files;
    CaptureScript script;
    Converter converter{window, files, PathStyle::slash(),
                        [this](const QString&) { return std::make_shared<ScriptedCapture>(log, script); }};
};

} // namespace vistrel::test
