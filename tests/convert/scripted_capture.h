#pragma once

#include "convert/page_capture.h"
#include "platform/runtime_error.h"
#include "tests/convert/call_log.h"

#include <QStringList>

namespace vistrel::test
{

using namespace Qt::StringLiterals;

/// What the instances of one test do.
struct CaptureScript {
    std::function<void(const PageCapture::ProgressHandler& progress)> duringCapture = [](const auto&) {};
    QString unloadable; ///< The address whose capture ends with a status other than 1.
    QString failing;    ///< The operation that raises a run-time error.
};

/// A page-capture component that follows a script and writes down every call, its own end too.
class ScriptedCapture : public PageCapture, public std::enable_shared_from_this<ScriptedCapture>
{
public:
    ScriptedCapture(CallLog& log, const CaptureScript& script) : m_log(log), m_script(script) {}
    ~ScriptedCapture() override { m_log.add(u"Ordane2 gone"_s); }

    void CapturePage(const QString& url, const QString& pattern) override
    {
        const auto self = shared_from_this(); // The script may release this instance.
        called(u"CapturePage"_s, url + u' ' + pattern);
        m_captured = url != m_script.unloadable;
        m_script.duringCapture(m_progress);
        m_log.add(u"CapturePage returns"_s);
    }
    void SetCaptureTimeout(qint32 milliseconds) override
    {
        called(u"SetCaptureTimeout"_s, number(milliseconds));
    }
    void SetRenderDelay(qint32 milliseconds) override { called(u"SetRenderDelay"_s, number(milliseconds)); }
    void SetAllowActiveX(bool value) override { called(u"SetAllowActiveX"_s, number(value)); }
    void SetAllowJava(bool value) override { called(u"SetAllowJava"_s, number(value)); }
    void SetAllowScript(bool value) override { called(u"SetAllowScript"_s, number(value)); }
    void SetJpegQuality(qint32 quality) override { called(u"SetJpegQuality"_s, number(quality)); }
    void ReleaseImage() override { called(u"ReleaseImage"_s); }
    qint32 GetCaptureStatus() override
    {
        called(u"GetCaptureStatus"_s);
        m_secondAnswer = !m_secondAnswer;
        return m_captured == m_secondAnswer ? 1 : 2;
    }
    QByteArray GetImageBytes(const QString& pattern) override
    {
        called(u"GetImageBytes"_s, pattern);
        return "picture";
    }
    QByteArray GetThumbnailBytes(const QString& pattern, qint32 width, qint32 height, qint32 mode) override
    {
        called(u"GetThumbnailBytes"_s, u"%1 %2 %3 %4"_s.arg(pattern).arg(width).arg(height).arg(mode));
        return "thumb";
    }
    void setProgressHandler(ProgressHandler handler) override { m_progress = std::move(handler); }

private:
    static QString number(qint32 value) { return QString::number(value); }
    void called(const QString& operation, const QString& arguments = {})
    {
        m_log.add(arguments.isEmpty() ? operation : operation + u' ' + arguments);
        if (operation == m_script.failing) throw RuntimeError(RuntimeError::Number::Automation);
    }

    CallLog& m_log;
    const CaptureScript& m_script;
    ProgressHandler m_progress;
    bool m_captured = false;
    bool m_secondAnswer = true; // The first of two answers is always wrong.
};

} // namespace vistrel::test
