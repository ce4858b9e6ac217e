#pragma once

#include "app/config/config_values.h"
#include "convert/settings.h"

namespace vistrel
{

/// The settings of the running program. Creation reads them from the file, destruction writes them back,
/// and nothing in between touches it. Setters store what they are given, without a check. A file that cannot
/// be written loses the changes silently.
class clsConfig final : public ConversionSettings
{
public:
    explicit clsConfig(QString IniFile = configPath());
    ~clsConfig() override;
    Q_DISABLE_COPY_MOVE(clsConfig)

    [[nodiscard]] QString OutputFolder() const override { return m_values.OutputFolder; }
    [[nodiscard]] qint32 ImageType() const override { return m_values.ImageType; }
    [[nodiscard]] qint32 NameAs() const override { return m_values.NameAs; }
    [[nodiscard]] qint32 Overwrite() const override { return m_values.Overwrite; }
    [[nodiscard]] qint32 OpenOutput() const override { return m_values.OpenOutput; }
    [[nodiscard]] qint32 TimeOut() const override { return m_values.TimeOut; }
    [[nodiscard]] qint32 DelayTime() const override { return m_values.DelayTime; }
    [[nodiscard]] qint16 FirstTime() const { return m_values.FirstTime; }
    [[nodiscard]] qint32 JpgQuality() const override { return m_values.JpgQuality; }
    [[nodiscard]] bool Thumbnail() const override { return m_values.Thumbnail; }
    [[nodiscard]] qint32 ThumWidth() const override { return m_values.ThumWidth; }
    [[nodiscard]] qint32 ThumHeight() const override { return m_values.ThumHeight; }
    [[nodiscard]] bool EnableActiveX() const override { return m_values.EnableActiveX; }
    [[nodiscard]] bool EnableJava() const override { return m_values.EnableJava; }
    [[nodiscard]] bool EnableScript() const override { return m_values.EnableScript; }

    void setOutputFolder(const QString& vData) { m_values.OutputFolder = vData; }
    void setImageType(qint32 vData) { m_values.ImageType = vData; }
    void setNameAs(qint32 vData) { m_values.NameAs = vData; }
    void setOverwrite(qint32 vData) { m_values.Overwrite = vData; }
    void setOpenOutput(qint32 vData) { m_values.OpenOutput = vData; }
    void setTimeOut(qint32 vData) { m_values.TimeOut = vData; }
    void setDelayTime(qint32 vData) { m_values.DelayTime = vData; }
    void setFirstTime(qint16 vData) { m_values.FirstTime = vData; }
    void setJpgQuality(qint32 vData) { m_values.JpgQuality = vData; }
    void setThumbnail(bool vData) { m_values.Thumbnail = vData; }
    void setThumWidth(qint32 vData) { m_values.ThumWidth = vData; }
    void setThumHeight(qint32 vData) { m_values.ThumHeight = vData; }
    void setEnableActiveX(bool vData) { m_values.EnableActiveX = vData; }
    void setEnableJava(bool vData) { m_values.EnableJava = vData; }
    void setEnableScript(bool vData) { m_values.EnableScript = vData; }

private:
    QString m_iniFile; // Full path.
    ConfigValues m_values;
};

} // namespace vistrel
