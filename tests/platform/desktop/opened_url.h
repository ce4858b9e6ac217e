#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

namespace vistrel::test
{

/// Stands in for the desktop: keeps the address that it is to open.
class OpenedUrl : public QObject
{
    Q_OBJECT

public:
    OpenedUrl()
    {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "take");
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "take");
    }

    Q_INVOKABLE void take(const QUrl& url) { opened = url; }

    QUrl opened;
};

} // namespace vistrel::test
