#include "support/TempAppState.h"

TempAppState::TempAppState()
    : m_state(std::make_unique<AppState>())
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("data")).toUtf8());
    m_ok = m_dir.isValid() && m_state->initialize();
}
