#include "support/QtWarningCapture.h"

namespace {
QtWarningCapture* g_current = nullptr;
}

QtWarningCapture::QtWarningCapture()
    : m_previous(qInstallMessageHandler(&QtWarningCapture::handle))
    , m_outer(g_current)
{
    g_current = this;
}

QtWarningCapture::~QtWarningCapture()
{
    g_current = m_outer;
    qInstallMessageHandler(m_previous);
}

void QtWarningCapture::handle(QtMsgType type, QMessageLogContext const& context, QString const& text)
{
    if (type == QtWarningMsg && g_current) {
        g_current->m_warnings << text;
        return;
    }
    if (g_current && g_current->m_previous)
        g_current->m_previous(type, context, text);
}
