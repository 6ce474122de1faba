// The stream form of every property kind: round trips in versions 12 and 6, and
// damaged or hostile blobs that must fail without harm.
#include "PropertyTestKit.h"
#include "properties/KRC_PropertyFactory.h"
#include "properties/KRC_PropertyFromFile.h"
#include "properties/KRC_PropertyFromFont.h"
#include "properties/KRC_PropertyFromList.h"
#include "properties/KRC_PropertyFromRange.h"
#include "properties/KRC_PropertyStream.h"
#include "support/PropertyBlobs.h"
#include "support/QtWarningCapture.h"

#include <QBuffer>
#include <QDate>
#include <QFont>
#include <QPoint>
#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int kCurrent = 12;
constexpr int kLegacy = 6;

UT_SharedPtr<KRC_PropertyDefinition> described()
{
    return testDefinition(true, false, "Long text", "Short");
}

std::unique_ptr<KRC_Property> sample(int kind)
{
    switch (kind) {
    case 0:
        return std::make_unique<KRC_Property>("plain", QVariant(42), described());
    case 1:
        return std::make_unique<KRC_PropertyFromList>("list", QString("y"),
            QMap<QString, QVariant> { { "a", "x" }, { "b", "y" } }, true, false, described());
    case 2:
        return std::make_unique<KRC_PropertyFromRange>("range", 2.5, 1.0, 3.0, described());
    case 3:
        return std::make_unique<KRC_PropertyFromFile>("file", QString("/tmp/a.png"), "*.png", described());
    default:
        return std::make_unique<KRC_PropertyFromFont>("font", QFont("Sans", 12), described());
    }
}

bool load(KRC_Property& property, QByteArray const& bytes, int version)
{
    QDataStream in(bytes);
    in.setVersion(version);
    return property.load(in);
}

// The item sequence that stored blobs hold, written out by hand: a reader elsewhere
// depends on this exact form, not only on this class reading its own output.
TEST(PropertyStream, StoredItemsAreInTheFixedOrderAndWidthsAndComeBack)
{
    const auto base = [](QDataStream& out, QString const& name, QVariant const& value) -> QDataStream& {
        return out << name << value << QString("Long text") << QString("Short") << qint32(1) << qint32(0);
    };
    const std::function<void(QDataStream&)> expected[] = {
        [&](QDataStream& out) { base(out, "plain", 42); },
        [&](QDataStream& out) {
            base(out, "list", QString("y"))
                << QVariant(QVariantMap { { "a", "x" }, { "b", "y" } }) << qint32(1) << qint32(0);
        },
        [&](QDataStream& out) { base(out, "range", 2.5) << QVariant(1.0) << QVariant(3.0); },
        [&](QDataStream& out) { base(out, "file", QString("/tmp/a.png")) << QString("*.png"); },
        [&](QDataStream& out) { base(out, "font", QFont("Sans", 12)); },
    };
    for (int version : { kCurrent, kLegacy }) {
        for (int kind = 0; kind < 5; ++kind) {
            const std::unique_ptr<KRC_Property> original = sample(kind);
            const QByteArray blob = PropertyBlobs::store(*original, version);
            EXPECT_EQ(blob.toHex(), PropertyBlobs::raw(version, expected[kind]).toHex())
                << "kind " << kind << " version " << version;
            std::unique_ptr<KRC_Property> reloaded(KRC_PropertyFactory::create(kind, QString()));
            ASSERT_TRUE(load(*reloaded, blob, version));
            EXPECT_EQ(PropertyBlobs::summary(*reloaded), PropertyBlobs::summary(*original));
        }
    }
}

TEST(PropertyStream, EveryAcceptedValueTypeComesBack)
{
    const QVariantList values { true, -3, 4u, -(qlonglong(1) << 40), qulonglong(1) << 63, 0.1, QString(),
        QString("x"), QStringList { "a", "" }, QVariantList { 1, "a", QVariantList { 2 } },
        QVariantMap { { "k", QVariantList { 1 } } }, QVariantHash { { "h", 2.5 } }, QDate(2012, 3, 1),
        QColor(1, 2, 3, 4), QColor(), QPoint(5, 6), QByteArray("\0b", 2), QVariant(), QFont("Serif", 9) };
    for (QVariant const& value : values) {
        KRC_Property reloaded("");
        ASSERT_TRUE(
            load(reloaded, PropertyBlobs::store(KRC_Property("v", value, nullptr), kCurrent), kCurrent))
            << value.typeName();
        EXPECT_EQ(reloaded.value(), value) << value.typeName();
    }
}

TEST(PropertyStream, EveryAcceptedTypeReadsBackInEveryVersion)
{
    for (int version :
        { kLegacy, int(QDataStream::Qt_4_2), kCurrent, int(QDataStream::Qt_5_0), int(QDataStream::Qt_5_15) }) {
        for (int type = 1; type < QMetaType::User; ++type) {
            if (!QMetaType::isRegistered(type) || !KRC_PropertyStream::acceptsType(type, version))
                continue;
            const QVariant value(type, nullptr);
            QVariant reloaded;
            const QByteArray bytes = PropertyBlobs::raw(version, [&](QDataStream& out) { out << value; });
            QDataStream in(bytes);
            in.setVersion(version);
            ASSERT_TRUE(KRC_PropertyStream::readVariant(in, reloaded)) << version << " " << value.typeName();
            // The oldest form knows fewer types and stores the others as invalid values.
            EXPECT_EQ(reloaded.isValid() ? reloaded.userType() : type, type)
                << version << " " << value.typeName();
            EXPECT_TRUE(in.atEnd());
        }
    }
}

// Qt's own reading of a bare head (type tag and null flag) shows which type it makes
// of a tag; whatever the guarded reader lets through must be a type it accepts.
TEST(PropertyStream, EveryTypeTagIsMappedAsQtMapsIt)
{
    QtWarningCapture capture;
    for (int version : { kLegacy, kCurrent, int(QDataStream::Qt_5_0), int(QDataStream::Qt_5_15) }) {
        for (quint32 tag = 0; tag < 1100; ++tag) {
            const auto head = [&](QDataStream& out) {
                out << tag;
                if (version >= QDataStream::Qt_4_2)
                    out << qint8(0);
            };
            QVariant qtValue;
            QDataStream qtIn(PropertyBlobs::raw(version, head));
            qtIn.setVersion(version);
            qtIn >> qtValue;
            const QByteArray blob = PropertyBlobs::raw(version, [&](QDataStream& out) {
                head(out);
                out.writeRawData(QByteArray(64, '\0').constData(), 64);
            });
            QDataStream in(blob);
            in.setVersion(version);
            QVariant value;
            EXPECT_TRUE(!KRC_PropertyStream::readVariant(in, value)
                || KRC_PropertyStream::acceptsType(qtValue.userType(), version))
                << "version " << version << " tag " << tag << " read by Qt as " << qtValue.typeName();
        }
    }
}

TEST(PropertyStream, LoadAddsADefaultDefinitionAndBypassesSetValue)
{
    KRC_Property target("old", QString("text"), nullptr);
    KRC_Property source("new", 7, nullptr);
    ASSERT_TRUE(load(target, PropertyBlobs::store(source, kCurrent), kCurrent));
    // The type is not kept.
    EXPECT_EQ(std::pair(target.name(), target.value()), std::pair(QString("new"), QVariant(7)));
    ASSERT_TRUE(target.definition());
    EXPECT_TRUE(target.ldesc().isNull() && !target.isInternal()); // as the blob says, not the default
}

TEST(PropertyStream, TruncationAtEveryByteFailsAndChangesNothing)
{
    for (int kind = 0; kind < 5; ++kind) {
        const QByteArray bytes = PropertyBlobs::store(*sample(kind), kCurrent);
        for (int cut = 0; cut < bytes.size(); ++cut) {
            std::unique_ptr<KRC_Property> property(KRC_PropertyFactory::create(kind, "fresh"));
            EXPECT_FALSE(load(*property, bytes.left(cut), kCurrent)) << kind << " cut at " << cut;
            EXPECT_TRUE(
                property->name() == QString("fresh") && !property->isValid() && !property->definition());
        }
    }
    // A stream already in error is not read either.
    QDataStream in(PropertyBlobs::store(*sample(0), kCurrent));
    in.setStatus(QDataStream::ReadCorruptData);
    KRC_Property property("fresh");
    EXPECT_FALSE(property.load(in) || property.isValid());
}

// Random and mutated blobs are the fuzz target's (fuzz/fuzz_property_blob.cpp).

// A blob whose value is a variant of the given type tag, followed by `write`.
QByteArray hostile(quint32 typeTag, std::function<void(QDataStream&)> const& write)
{
    return PropertyBlobs::raw(kCurrent, [&](QDataStream& out) {
        out << QString("n") << typeTag << qint8(0);
        write(out);
    });
}

TEST(PropertyStream, HostileLengthsTagsAndNestingFailCleanly)
{
    const auto count = [](quint32 n) { return [n](QDataStream& out) { out << n << QString("x"); }; };
    std::vector<QByteArray> blobs {
        PropertyBlobs::raw(kCurrent, [](QDataStream& out) { out << quint32(0xfffffffe); }), // name length
        hostile(QVariant::List, count(0x7fffffff)),
        hostile(QVariant::StringList, count(0xfffffff0)),
        hostile(QVariant::Map, count(0x10000000)),
        hostile(QVariant::Hash, count(0x7fffffff)),
        hostile(QVariant::ByteArray, count(0x7ffffff0)),
        hostile(71, count(0x7fffffff)), // a polygon: its reader trusts the count
        hostile(66, count(3)), // a brush
        hostile(QVariant::RegExp, // compiled on reading: gigabytes for this pattern
            [](QDataStream& out) { out << QString("((a{1000}){1000}){1000}") << quint8(1) << quint16(0); }),
        hostile(127, [](QDataStream& out) { out << QByteArray("QPolygonF") << quint32(0x7fffffff); }),
        hostile(1024, count(1)),
        hostile(QVariant::List,
            [](QDataStream& out) {
                for (int depth = 0; depth < 40; ++depth)
                    out << quint32(1) << quint32(QVariant::List) << qint8(0);
                out << quint32(0);
            }),
    };
    for (std::size_t i = 0; i < blobs.size(); ++i) {
        KRC_Property property("fresh");
        EXPECT_FALSE(load(property, blobs[i], kCurrent) || property.isValid()) << "blob " << i;
    }
}

// Every kind reports a store to a device that takes no bytes as failed, a good one not.
TEST(PropertyStream, StoreReportsAFailedWrite)
{
    for (int kind = 0; kind < 5; ++kind) {
        QByteArray bytes;
        QBuffer readOnly(&bytes);
        readOnly.open(QIODevice::ReadOnly);
        QDataStream failing(&readOnly);
        QDataStream good(&bytes, QIODevice::WriteOnly);
        QtWarningCapture quiet;
        EXPECT_TRUE(!sample(kind)->store(failing) && sample(kind)->store(good)) << kind;
    }
}

// Blobs whole but for the guard under test: 32 levels of lists or maps load, 33 do
// not; a colour loads only with a colour model that Qt names.
TEST(PropertyStream, NestingAndEnumGuardsDecideAlone)
{
    const auto nested = [](quint32 type, int levels) {
        return hostile(type, [=](QDataStream& out) {
            for (int level = 1; level < levels; ++level) {
                out << quint32(1);
                if (type == QVariant::Map)
                    out << QString("k");
                out << type << qint8(0);
            }
            out << quint32(0) << QString() << QString() << qint32(0) << qint32(0);
        });
    };
    const auto colour = [](qint8 model) {
        return hostile(QVariant::Color, [=](QDataStream& out) {
            out << model << quint16(0xffff) << quint16(1) << quint16(2) << quint16(3) << quint16(0)
                << QString() << QString() << qint32(0) << qint32(0);
        });
    };
    const std::pair<QByteArray, bool> cases[] = { { nested(QVariant::List, 32), true },
        { nested(QVariant::List, 33), false }, { nested(QVariant::Map, 32), true },
        { nested(QVariant::Map, 33), false }, { colour(1), true }, { colour(QColor::ExtendedRgb), true },
        { colour(QColor::ExtendedRgb + 1), false }, { colour(-1), false } };
    for (auto const& [blob, loads] : cases) {
        KRC_Property property("fresh");
        EXPECT_EQ(load(property, blob, kCurrent), loads) << blob.toHex().left(80).constData();
    }
}

} // namespace
