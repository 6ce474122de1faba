// Attribute text forms, the XML writer, binary attributes and memory files.
#include "host/persistence/HostPersistence.h"
#include "host/persistence/PO_XmlLimits.h"

#include <gtest/gtest.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

TEST(PersistenceBool, ParsesExactlyWhatTheWriterWrites)
{
    struct Case
    {
        char const* text;
        bool accepted;
        bool value;
    };
    Case const cases[] = { { "true", true, true }, { "false", true, false }, { "TRUE", false, false },
        { "1", false, false }, { "", false, false }, { " true", false, false }, { "falsey", false, false } };
    for (Case const& c : cases) {
        bool value = !c.value;
        bool const untouched = value;
        EXPECT_EQ(PO_Utils::parseBoolAttr(QString::fromUtf8(c.text), value), c.accepted) << c.text;
        EXPECT_EQ(value, c.accepted ? c.value : untouched) << c.text;
    }
    EXPECT_EQ(PO_Utils::boolToString(true), QStringLiteral("true"));
    EXPECT_EQ(PO_Utils::boolToString(false), QStringLiteral("false"));
}

TEST(PersistenceDouble, TextReadsBackBitExact)
{
    for (double const value :
        { 0.0, -0.0, 0.1, 1.0 / 3.0, 2.6666666666666665, 1.4173228346456694, 9007199254740993.0, 1e300,
            -1e-300, std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
            std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::infinity(),
            -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN() }) {
        QString const text = PO_Utils::doubleToString(value);
        bool ok = false;
        double const back = text.toDouble(&ok);
        EXPECT_TRUE(ok) << qPrintable(text);
        EXPECT_TRUE(std::isnan(value) ? std::isnan(back) : std::memcmp(&value, &back, sizeof value) == 0)
            << qPrintable(text);
    }
}

// Writes through a PO_XmlWriter into a document and hands back the text.
template <class Body> QByteArray writeWith(Body body)
{
    QByteArray out;
    QXmlStreamWriter stream(&out);
    PO_XmlWriter writer(stream);
    body(writer);
    return out;
}

TEST(PersistenceWriter, WritesAttributesInOrderWithTheirTextForms)
{
    QByteArray const xml = writeWith([](PO_XmlWriter& w) {
        w.beginElement(QStringLiteral("e"));
        w.encodeStringAttr(QStringLiteral("s"), QStringLiteral("a\"<&>\n"));
        w.encodeIntAttr(QStringLiteral("i"), -42);
        w.encodeDoubleAttr(QStringLiteral("d"), 0.1);
        w.encodeBoolAttr(QStringLiteral("b"), true);
        w.endElement();
    });
    EXPECT_EQ(xml, QByteArray("<e s=\"a&quot;&lt;&amp;&gt;&#10;\" i=\"-42\" d=\"0.1\" b=\"true\"/>"));
}

TEST(PersistenceWriter, MisplacedCallsAndBadCharactersNeverBreakTheDocument)
{
    QByteArray const xml = writeWith([](PO_XmlWriter& w) {
        w.beginElement(QStringLiteral("outer"));
        w.beginElement(QStringLiteral("inner"));
        w.endElement();
        w.encodeIntAttr(QStringLiteral("late"), 1); // after a child: dropped
        w.writeCharacters(
            QString::fromUtf8("bad\x01\x02 \xed\xa0\x80", 9) + QChar(0xD800) + QStringLiteral("ok"));
        w.endElement();
        EXPECT_EQ(w.depth(), 0);
        w.endElement(); // nothing open: ignored
    });
    QXmlStreamReader reader(xml);
    QString text;
    while (!reader.atEnd())
        text += reader.readNext() == QXmlStreamReader::Characters ? reader.text().toString() : QString();
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString()) << xml.constData();
    EXPECT_TRUE(!xml.contains("late") && text.startsWith(QStringLiteral("bad\xFFFD\xFFFD "))
        && text.endsWith(QStringLiteral("\xFFFDok")))
        << qPrintable(text);
    QString const emoji = QString::fromUtf8("\xf0\x9f\x8e\xac"); // a valid pair is kept
    EXPECT_EQ(PO_Utils::xmlSafe(emoji + QChar(0xDC00)), emoji + QChar(QChar::ReplacementCharacter));
    QString const edges = QChar(0xD7FF) + QString::fromUcs4(U"\U00010000") + QChar(0xE000);
    EXPECT_EQ(PO_Utils::xmlSafe(edges), edges);
}

QXmlAttributes attributesOf(QByteArray const& xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.isStartElement() || reader.name() != QLatin1String("value"))
        reader.readNext();
    QXmlAttributes result;
    for (QXmlStreamAttribute const& a : reader.attributes())
        result.append(a.qualifiedName().toString(), QString(), a.name().toString(), a.value().toString());
    return result;
}

TEST(PersistenceBinary, ElementReadsBackExactlyIntoAMemoryFile)
{
    for (int length : { 0, 1, 2, 3, 256, 1000 }) {
        QByteArray bytes;
        for (int i = 0; i < length; ++i)
            bytes.append(char((i * 37) & 0xFF));
        QByteArray const xml = writeWith([&](PO_XmlWriter& w) {
            w.encodeBinaryElement(QStringLiteral("value"), QStringLiteral("data"),
                reinterpret_cast<unsigned char const*>(bytes.constData()), bytes.size());
        });
        DB_MemFile file;
        file.Write("stale", 5);
        ASSERT_TRUE(PIO_XML::ComponentReader::getBinaryStreamFromAttribute(
            file, QStringLiteral("data"), attributesOf(xml)));
        EXPECT_EQ(std::pair(file.GetLength(), file.toByteArray()), std::pair(length, bytes));
    }
}

TEST(PersistenceBinary, MissingOrDamagedAttributeLeavesTheFileAlone)
{
    for (char const* xml : { "<value other=\"AAAA\"/>", "<value data=\"A*==\"/>", "<value data=\"AAA\"/>",
             "<value data=\"\xc3\xa9\xc3\xa9\"/>" }) {
        DB_MemFile file;
        file.Write("keep", 4);
        EXPECT_FALSE(PIO_XML::ComponentReader::getBinaryStreamFromAttribute(
            file, QStringLiteral("data"), attributesOf(xml)))
            << xml;
        EXPECT_EQ(file.toByteArray(), QByteArray("keep"));
    }
}

TEST(PersistenceMemFile, GrowsAndCopiesIndependently)
{
    DB_MemFile file;
    EXPECT_EQ(file.GetLength(), 0);
    file.Write("ab", 2);
    file.Write(nullptr, 3);
    file.Write("cd", 2);
    DB_MemFile copy(file);
    file.Clear();
    EXPECT_EQ(std::pair(copy.GetLength(), file.GetLength()), std::pair(4, 0));
    EXPECT_EQ(std::memcmp(copy.GetBuffer(), "abcd", 4), 0);
}

// A run of bytes without '<' or '>' may hold maxTokenBytes and no more, wherever it
// starts: at the document's start, right after a bracket, or after an earlier run.
TEST(PersistenceLimits, TokenLengthsAreCheckedToTheByte)
{
    QByteArray const full(int(PO_XmlLimits::maxTokenBytes), 'x');
    struct Case
    {
        QByteArray document;
        bool fits;
    } const cases[] = {
        { "<" + full, true },
        { "<a>" + full, true },
        { full + "<b>" + full, true },
        { "<a>" + full + "x", false },
        { full + "x<", false },
    };
    for (Case const& c : cases) {
        QString error;
        EXPECT_EQ(PO_XmlLimits::checkTokenLengths(c.document, &error), c.fits) << c.document.size();
        EXPECT_EQ(error.isEmpty(), c.fits) << qPrintable(error);
    }
}

} // namespace
