#include "app/config/cls_config.h"

namespace vistrel
{

clsConfig::clsConfig(QString IniFile) : m_iniFile(std::move(IniFile)), m_values(loadConfig(m_iniFile)) {}

clsConfig::~clsConfig() { (void)saveConfig(m_iniFile, m_values); }

} // namespace vistrel
