#pragma once

#include "convert/page_capture.h"

#include <QtGlobal>

#include <memory>

namespace vistrel
{

/// The field `snap`: holds the page-capture instance of the run under way, and is empty between runs. It may
/// be emptied at any moment that the event loop runs, inside one of the instance's own operations too.
class PageCaptureField
{
public:
    PageCaptureField() = default;
    ~PageCaptureField() { release(); }
    Q_DISABLE_COPY_MOVE(PageCaptureField)

    /// Releases what the field holds, puts instance (never null) into it and subscribes onProgress to it.
    void hold(std::shared_ptr<PageCapture> instance, PageCapture::ProgressHandler onProgress);

    /// Ends the subscription and drops the reference. Does nothing when the field is empty.
    void release();

    /// Reaches the instance, which may be released from inside the operation called on it.
    /// RuntimeError ObjectNotSet when the field is empty.
    [[nodiscard]] PageCapture* operator->() const;

private:
    std::shared_ptr<PageCapture> m_instance;
};

} // namespace vistrel
