// Ids, matrices, points, translation and the program name of the base library.
#include "host/base/HostBase.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QHash>
#include <QTranslator>

#include <cmath>
#include <sstream>

namespace {

TEST(BaseId, ComparesHashesAndPrintsWholeSixtyFourBits)
{
    EXPECT_TRUE(UT_Id().isNull() && UT_Id(7) != UT_Id() && UT_Id(3) < UT_Id(0xFFFFFFFFFFFFFFFFull));
    QHash<UT_Id, int> table { { UT_Id(1), 1 }, { UT_Id(1ull << 40 | 1), 2 } };
    EXPECT_EQ(std::pair(table.value(UT_Id(1)), table.value(UT_Id(1ull << 40 | 1))), std::pair(1, 2));
    EXPECT_EQ(UT_Id(0xABCull << 48).toString(), QStringLiteral("0x0abc000000000000"));
    std::ostringstream out;
    out << UT_Id(255);
    EXPECT_EQ(out.str(), "0x00000000000000ff");
}

Math::Matrix4x4 fromRows(std::initializer_list<double> values)
{
    double rows[16];
    std::copy(values.begin(), values.end(), rows);
    return Math::Matrix4x4(rows);
}

TEST(BaseMatrix, ProductHasTheObjectOnTheLeft)
{
    Math::Matrix4x4 const a = fromRows({ 1, 2, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1 });
    Math::Matrix4x4 const b = fromRows({ 1, 0, 0, 0, 3, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1 });
    Math::Matrix4x4 const ab = a * b;
    Math::Matrix4x4 const ba = b * a;
    EXPECT_EQ(ab, fromRows({ 7, 2, 0, 0, 3, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1 }));
    EXPECT_EQ(ba, fromRows({ 1, 2, 0, 0, 3, 7, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1 }));
    EXPECT_TRUE(!ab.isIdentity() && Math::Matrix4x4() * a == a && a * Math::Matrix4x4() == a);
}

TEST(BaseMatrix, TranslateActsInTheMatrixOwnFrame)
{
    Math::Matrix4x4 m;
    Math::Matrix4x4& same = m.translate(0.0, 0.0, 8.0 / 3.0);
    EXPECT_TRUE(&same == &m && !m.isIdentity());
    EXPECT_EQ(m.at(2, 3), 2.6666666666666665);

    // A scale by 2 then a translation by 1 along x moves by 2: M * T.
    Math::Matrix4x4 scale = fromRows({ 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1 });
    Math::Matrix4x4 translated = scale;
    translated.translate(1, 0, 0);
    Math::Matrix4x4 expected = scale * fromRows({ 1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1 });
    EXPECT_EQ(translated, expected);
    EXPECT_EQ(translated.at(0, 3), 2.0);

    Math::Matrix4x4 still;
    still.translate(0, 0, 0);
    EXPECT_TRUE(still.isIdentity());

    // Assignment and set keep the identity flag true.
    m = Math::Matrix4x4();
    EXPECT_TRUE(m.isIdentity());
    m.set(0, 1, 5.0);
    EXPECT_FALSE(m.isIdentity());
    m.set(0, 1, 0.0);
    EXPECT_TRUE(m.isIdentity());
}

// A translator that knows one text, to see that installed translations win.
class OneWordTranslator : public QTranslator
{
public:
    QString translate(char const* context, char const* source, char const*, int) const override
    {
        return QByteArray(context) == "ctx" && QByteArray(source) == "Hello" ? QStringLiteral("Bonjour")
                                                                             : QString();
    }
    bool isEmpty() const override { return false; }
};

TEST(BaseTranslate, UntranslatedTextsKeepTheirEncoding)
{
    char const latin1[] = "caf\xe9";
    char const utf8[] = "caf\xc3\xa9";
    EXPECT_EQ(QStringList({ MISC_translateFromLatin1("ctx", latin1), MISC_translateFromUtf8("ctx", utf8) }),
        QStringList({ QString::fromUtf8("café"), QString::fromUtf8("café") }));
    EXPECT_TRUE(MISC_translateFromUtf8("ctx", nullptr).isNull());

    OneWordTranslator translator; // installed translations win
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(
        QStringList({ MISC_translateFromLatin1("ctx", "Hello"), MISC_translateFromUtf8("other", "Hello") }),
        QStringList({ "Bonjour", "Hello" }));
    QCoreApplication::removeTranslator(&translator);
}

TEST(BaseWhoami, HostNameWinsAndPointersStayValid)
{
    QString const defaultName = QString::fromUtf8(whoami::progName());
    EXPECT_FALSE(defaultName.isEmpty());
    whoami::setProgName(QStringLiteral("storyboarder"));
    char const* set = whoami::progName();
    EXPECT_STREQ(set, "storyboarder");
    whoami::setProgName(QString());
    EXPECT_EQ(QString::fromUtf8(whoami::progName()), defaultName);
    EXPECT_STREQ(set, "storyboarder");
}

} // namespace
