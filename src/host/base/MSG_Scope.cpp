#include "host/base/MSG_Scope.h"

#include <QMap>

#include <cstdio>

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// Length of the marker "%N" or "%NN" at `pos` (0 when there is none), its number in `number`.
int markerAt(QString const& text, int pos, int& number)
{
    if (text.at(pos) != QLatin1Char('%') || pos + 1 >= text.size() || !isDigit(text.at(pos + 1)))
        return 0;
    number = text.at(pos + 1).digitValue();
    if (pos + 2 < text.size() && isDigit(text.at(pos + 2))) {
        number = number * 10 + text.at(pos + 2).digitValue();
        return number ? 3 : 0;
    }
    return number ? 2 : 0;
}

// Puts all values in at once: the i-th value fills the i-th smallest marker number present.
QString substitute(QString const& text, QStringList const& args)
{
    if (args.isEmpty())
        return text;
    QMap<int, int> valueOfMarker;
    int number = 0;
    for (int pos = 0; pos < text.size(); ++pos) {
        if (markerAt(text, pos, number))
            valueOfMarker.insert(number, -1);
    }
    int next = 0;
    for (auto it = valueOfMarker.begin(); it != valueOfMarker.end() && next < args.size(); ++it)
        it.value() = next++;

    QString result;
    result.reserve(text.size());
    for (int pos = 0; pos < text.size();) {
        int const length = markerAt(text, pos, number);
        int const value = length ? valueOfMarker.value(number, -1) : -1;
        if (value < 0) {
            result += text.at(pos++);
            continue;
        }
        result += args.at(value);
        pos += length;
    }
    return result;
}

MSG_Scope::Sink& currentSink()
{
    static MSG_Scope::Sink sink = &MSG_Scope::writeToStandardError;
    return sink;
}

} // namespace

MSG_Text::MSG_Text(char const* untranslated, QString const& translated)
    : m_untranslated(QString::fromUtf8(untranslated))
    , m_translated(translated)
{
}

MSG_Text& MSG_Text::arg(unsigned value, int fieldWidth, int base)
{
    m_args.append(QStringLiteral("%1").arg(value, fieldWidth, base));
    return *this;
}

MSG_Text& MSG_Text::arg(QString const& value, int fieldWidth)
{
    m_args.append(QStringLiteral("%1").arg(value, fieldWidth));
    return *this;
}

QString MSG_Text::untranslated() const
{
    return substitute(m_untranslated, m_args);
}

QString MSG_Text::translated() const
{
    return substitute(m_translated, m_args);
}

MSG_Scope::MSG_Scope(char const* untranslated, QString const& translated, Action action)
    : MSG_Text(untranslated, translated)
    , m_action(action)
{
}

MSG_Scope::~MSG_Scope()
{
    if (m_discarded)
        return;
    MSG_Message const message { untranslated(), translated(), m_action };
    // A sink that throws must not take the program down from a destructor.
    try {
        currentSink()(message);
    } catch (...) {
    }
}

MSG_Scope::Sink MSG_Scope::setSink(Sink sink)
{
    Sink previous = currentSink();
    currentSink() = sink ? std::move(sink) : Sink(&MSG_Scope::writeToStandardError);
    return previous;
}

void MSG_Scope::writeToStandardError(MSG_Message const& message)
{
    QByteArray const line = message.translated.toLocal8Bit() + '\n';
    std::fwrite(line.constData(), 1, size_t(line.size()), stderr);
    std::fflush(stderr);
}
