#include "convert/page_capture_field.h"

#include "platform/runtime_error.h"

#include <utility>

namespace vistrel
{

void PageCaptureField::hold(std::shared_ptr<PageCapture> instance, PageCapture::ProgressHandler onProgress)
{
    release();
    instance->setProgressHandler(std::move(onProgress));
    m_instance = std::move(instance);
}

void PageCaptureField::release()
{
    if (const auto instance = std::exchange(m_instance, nullptr)) instance->setProgressHandler({});
}

PageCapture* PageCaptureField::operator->() const
{
    if (!m_instance) throw RuntimeError(RuntimeError::Number::ObjectNotSet);
    return m_instance.get();
}

} // namespace vistrel
