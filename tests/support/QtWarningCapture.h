// Test helper: collects the qWarning texts emitted while it lives.
#pragma once

#include <QStringList>
#include <QtGlobal>

/// Installs a Qt message handler on construction that keeps warnings (and passes
/// other kinds on), and puts the previous handler back on destruction, so captures
/// nest. Host's thread only.
class QtWarningCapture
{
public:
    QtWarningCapture();
    ~QtWarningCapture();
    QtWarningCapture(QtWarningCapture const&) = delete;
    QtWarningCapture& operator=(QtWarningCapture const&) = delete;

    QStringList const& warnings() const { return m_warnings; }
    void clear() { m_warnings.clear(); }

private:
    static void handle(QtMsgType type, QMessageLogContext const& context, QString const& text);

    QStringList m_warnings;
    QtMessageHandler m_previous;
    QtWarningCapture* m_outer;
};
