// The preference store: reading with defaults, change signals, the preferences file.
#include "host/prefs/HostPrefs.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>
#include <limits>

namespace {

QString const key = QStringLiteral("KEY");

// What each getter answers for a value stored in each kind; the getters' defaults
// are true, -1, -1.5 and "default", so an answer equal to them means "no conversion".
TEST(Prefs, GettersConvertOrFallBackToTheDefault)
{
    struct
    {
        void (*store)(PR_Preference&);
        bool asBool;
        int asInt;
        double asDouble;
        char const* asString;
    } const cases[] = { { [](PR_Preference&) {}, true, -1, -1.5, "default" },
        { [](PR_Preference& p) { p.setBoolValue(key, false); }, false, 0, -1.5, "false" },
        { [](PR_Preference& p) { p.setIntValue(key, 0); }, false, 0, 0.0, "0" },
        { [](PR_Preference& p) { p.setIntValue(key, 7); }, true, 7, 7.0, "7" },
        { [](PR_Preference& p) { p.setDoubleValue(key, 0.25); }, true, -1, 0.25, "0.25" },
        { [](PR_Preference& p) { p.setStringValue(key, "true"); }, true, -1, -1.5, "true" },
        { [](PR_Preference& p) { p.setStringValue(key, "12"); }, true, 12, 12.0, "12" },
        { [](PR_Preference& p) { p.setStringValue(key, "abc"); }, true, -1, -1.5, "abc" } };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.asString);
        PR_Preference prefs;
        c.store(prefs);
        EXPECT_EQ(std::tuple(prefs.getBoolValue(key, true), prefs.getIntValue(key, -1),
                      prefs.getDoubleValue(key, -1.5), prefs.getStringValue(key, QStringLiteral("default"))),
            std::tuple(c.asBool, c.asInt, c.asDouble, QString::fromUtf8(c.asString)));
    }
}

TEST(Prefs, SignalsOnlyRealChanges)
{
    PR_Preference prefs;
    EXPECT_FALSE(prefs.getBool(key)); // unknown keys read false
    QSignalSpy spy(&prefs, &PR_Preference::preferenceChanged);
    prefs.setIntValue(key, 3);
    prefs.setIntValue(key, 3);
    EXPECT_EQ(spy.count(), 1);
    prefs.setBoolValue(key, true); // another kind is a change, even if it converts alike
    EXPECT_EQ(spy.count(), 2);
    prefs.remove(QStringLiteral("absent"));
    prefs.remove(key);
    EXPECT_EQ(spy.count(), 3);
    prefs.clear();
    EXPECT_EQ(spy.count(), 3);
}

class PrefsFile : public ::testing::Test
{
protected:
    QString path(char const* name = "prefs.txt") const { return dir.filePath(QString::fromUtf8(name)); }
    void writeFile(QByteArray const& content) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QTemporaryDir dir;
};

TEST_F(PrefsFile, RoundTripKeepsKindsTextsAndDoublesExactly)
{
    PR_Preference prefs;
    prefs.setBoolValue(QStringLiteral("ST_ENABLE_ACT"), true);
    prefs.setIntValue(QStringLiteral("count"), -2147483647 - 1);
    prefs.setDoubleValue(QStringLiteral("KR_CAMERA_FILM_WIDTH"), 1.4173228346456694);
    prefs.setDoubleValue(QStringLiteral("tiny"), std::numeric_limits<double>::denorm_min());
    prefs.setDoubleValue(QStringLiteral("negZero"), -0.0);
    prefs.setDoubleValue(QStringLiteral("inf"), -std::numeric_limits<double>::infinity());
    prefs.setStringValue(QStringLiteral("DEFAULT_LAYERS"), QStringLiteral("A;;B \\ = x\n\ty\r\x01 é \\s"));
    prefs.setStringValue(QStringLiteral("key with spaces = and more"), QStringLiteral("  padded  "));
    prefs.setStringValue(QStringLiteral("empty"), QString());
    ASSERT_TRUE(prefs.save(path())) << qPrintable(prefs.errorString());

    PR_Preference loaded;
    QSignalSpy spy(&loaded, &PR_Preference::preferenceChanged);
    ASSERT_TRUE(loaded.load(path())) << qPrintable(loaded.errorString());
    EXPECT_EQ(std::pair(spy.count(), loaded.keys()), std::pair(1, prefs.keys()));
    for (QString const& k : prefs.keys())
        EXPECT_EQ(loaded.getStringValue(k, "?"), prefs.getStringValue(k, "!")) << qPrintable(k);
    EXPECT_TRUE(loaded.getBool(QStringLiteral("ST_ENABLE_ACT"))
        && std::signbit(loaded.getDoubleValue(QStringLiteral("negZero"), 1))
        && std::isinf(loaded.getDoubleValue(QStringLiteral("inf"), 0)));
    EXPECT_EQ(std::tuple(loaded.getIntValue(QStringLiteral("count"), 0),
                  loaded.getDoubleValue(QStringLiteral("KR_CAMERA_FILM_WIDTH"), 0),
                  loaded.getDoubleValue(QStringLiteral("tiny"), 0)),
        std::tuple(-2147483647 - 1, 1.4173228346456694, std::numeric_limits<double>::denorm_min()));
    EXPECT_EQ(loaded.getStringValue(QStringLiteral("key with spaces = and more"), {}),
        QStringLiteral("  padded  "));
}

TEST_F(PrefsFile, MissingFileIsAnEmptyStoreAndSaveFailureIsReported)
{
    PR_Preference prefs;
    prefs.setIntValue(key, 1);
    EXPECT_TRUE(
        !prefs.save(dir.filePath(QStringLiteral("no/such/dir/prefs.txt"))) && !prefs.errorString().isEmpty());
    EXPECT_TRUE(prefs.load(path("absent.txt")) && prefs.keys().isEmpty() && prefs.errorString().isEmpty());
}

TEST_F(PrefsFile, HandWrittenFileWithCommentsAndCrLfLoads)
{
    writeFile("# mine\r\n\r\nbool a = true\r\nstring b = x = y\r\n   \nint c = 4");
    PR_Preference prefs;
    ASSERT_TRUE(prefs.load(path())) << qPrintable(prefs.errorString());
    EXPECT_EQ(std::tuple(prefs.getBool("a"), prefs.getStringValue("b", {}), prefs.getIntValue("c", 0)),
        std::tuple(true, QStringLiteral("x = y"), 4));
}

TEST_F(PrefsFile, DamagedFileLeavesTheStoreEmptyAndNamesTheFile)
{
    for (char const* line : { "float x = 1\n", "int x = one\n", "bool x = yes\n", "double x = \n",
             "int x 3\n", "string x = bad \\q escape\n", "string x = cut \\u12\n", "string two words = x\n",
             "string = nokey\n", "noseparator\n", "string x = \xff\xfe not utf8\n" }) {
        writeFile(QByteArray("int good = 1\n") + line);
        PR_Preference prefs;
        prefs.setIntValue(key, 1);
        QSignalSpy spy(&prefs, &PR_Preference::preferenceChanged);
        EXPECT_TRUE(!prefs.load(path()) && prefs.keys().isEmpty() && spy.count() == 1
            && prefs.errorString().contains(path()))
            << line << qPrintable(prefs.errorString());
    }
}

} // namespace
