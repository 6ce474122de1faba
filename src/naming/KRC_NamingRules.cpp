#include "naming/KRC_NamingRules.h"

#include "host/base/HostBase.h"
#include "host/persistence/HostPersistence.h"
#include "host/prefs/HostPrefs.h"
#include "metadata/KRC_MetadataReader.h"
#include "metadata/KRC_MetadataRecordImpl.h"
#include "naming/NamingRulesMetadataReader.h"

#include <QXmlAttributes>

#include <algorithm>
#include <iterator>

QString const KRC_NamingRules::kPIO_KRMETA_Keyword = QStringLiteral("namingRules");
QString const KRC_NamingRules::kPIO_KRMETA_Version = QStringLiteral("2.0");

namespace {

QString const kVersionFlat = QStringLiteral("1.0");

QString const kAttrOverloadingPref = QStringLiteral("overloadingPref");
QString const kAttrAutoShowTotal = QStringLiteral("autoShowTotal");
QString const kAttrEnabledAct = QStringLiteral("enabledAct");
QString const kAttrAutomaticLeadingZeros = QStringLiteral("automaticLeadingZeros");
QString const kAttrNumberOfZeros = QStringLiteral("numberOfZeros");
QString const kAttrAllowCustomName = QStringLiteral("allowCustomName");
QString const kAttrAutoIncrementRule = QStringLiteral("autoIncrementRule");
QString const kAttrIncrementValue = QStringLiteral("sceneNameIncrementValue");
QString const kAttrConflictDelimiter = QStringLiteral("shotConflictDelimiter");
QString const kAttrConflictType = QStringLiteral("shotConflictType");
QString const kAttrSmartNameOnDrop = QStringLiteral("smartShotNameOnDrop");
QString const kAttrResetNameOnNewParent = QStringLiteral("resetNameOnNewParent");
// Only in the flat form: the shot's rule, beside the panel's "autoIncrementRule".
QString const kAttrShotAutoIncrementRule = QStringLiteral("shotAutoIncrementRule");

QString const kElementRulesPattern = QStringLiteral("%1_rules");

QString const kPrefAutoShowTotal = QStringLiteral("ST_PANEL_NAME_AUTO_SHOW_TOTAL");
QString const kPrefEnableAct = QStringLiteral("ST_ENABLE_ACT");

// The settings of one kind of object. The first kFieldCount are stored fields, in
// the order of their attributes; the last is the by-N switch, a preference only.
enum Setting
{
    kLeadingZeros,
    kNumberOfZeros,
    kAllowCustom,
    kIncrementRule,
    kIncrementValue,
    kConflictDelimiter,
    kConflictType,
    kSmartOnDrop,
    kResetOnNewParent,
    kIncrementByN,
    kSettingCount
};
constexpr int kFieldCount = kIncrementByN;

enum Kind
{
    kBool,
    kInt
};

// Word columns of the defaults.
enum Word
{
    kSequence,
    kShot,
    kPanel,
    kWordCount
};

struct SettingSpec
{
    const char* key; // "%1" is the word in upper case
    Kind kind;
    int defaults[kWordCount];
    QString const* attribute; // null for the by-N switch
};

SettingSpec const kSettings[kSettingCount] = {
    { "ST_%1_NAME_AUTOMATIC_LEADING_ZEROS", kBool, { 0, 0, 0 }, &kAttrAutomaticLeadingZeros },
    { "ST_%1_NAME_NUMBER_OF_ZEROS", kInt, { 2, 2, 0 }, &kAttrNumberOfZeros },
    { "ST_%1_NAME_ALLOW_CUSTOM", kBool, { 1, 1, 0 }, &kAttrAllowCustomName },
    { "ST_%1_NAME_AUTO_INCREMENT_RULE", kInt, { 0, 0, 0 }, &kAttrAutoIncrementRule },
    { "ST_%1_NAME_INCREMENT_VALUE", kInt, { 10, 10, 10 }, &kAttrIncrementValue },
    { "ST_%1_NAME_CONFLICT_DELIMITER", kInt, { 1, 1, 1 }, &kAttrConflictDelimiter },
    { "ST_%1_NAME_CONFLICT_ADD_TYPE", kInt, { 0, 0, 1 }, &kAttrConflictType },
    { "ST_SMART_%1_NAME_ON_DROP", kBool, { 0, 0, 0 }, &kAttrSmartNameOnDrop },
    { "ST_%1_NAME_RESET_ON_NEW_PARENT", kBool, { 0, 0, 1 }, &kAttrResetNameOnNewParent },
    { "ST_%1_NAME_AUTO_INCREMENT_BY_N", kBool, { 0, 0, 0 }, nullptr },
};

int wordColumn(QString const& objName)
{
    const QString word = objName.toLower();
    if (word == QLatin1String("sequence"))
        return kSequence;
    if (word == QLatin1String("shot"))
        return kShot;
    if (word == QLatin1String("panel"))
        return kPanel;
    return -1;
}

bool askBool(QString const& key)
{
    return tuPref && tuPref->getBool(key);
}

// Booleans are read checked (a bad one keeps the field), integers unchecked.
void readBoolField(QXmlAttributes const& attributes, QString const& name, int& field)
{
    bool value = field != 0;
    KRC_MetadataReader::checkedBool(attributes, name, value);
    field = value;
}

int readInt(QXmlAttributes const& attributes, QString const& name)
{
    return KRC_MetadataReader::uncheckedInt(attributes, name);
}

} // namespace

class KRC_NamingRules::ObjRulesPrivate
{
public:
    explicit ObjRulesPrivate(QString const& word)
        : objName(word)
        , elementName(kElementRulesPattern.arg(word.toLower()))
    {
        const int column = wordColumn(word);
        const QString upper = word.toUpper();
        for (int i = 0; i < kSettingCount; ++i) {
            keys[i] = QString::fromLatin1(kSettings[i].key).arg(upper);
            defaults[i] = column < 0 ? 0 : kSettings[i].defaults[column];
        }
        for (int i = 0; i < kFieldCount; ++i)
            fields[i] = preference(Setting(i));
        if (preference(kIncrementByN))
            fields[kIncrementRule] = Rule_ByN;
    }

    // The preference behind a setting, with its default when there is no store.
    int preference(Setting setting) const
    {
        if (!tuPref)
            return defaults[setting];
        if (kSettings[setting].kind == kBool)
            return tuPref->getBoolValue(keys[setting], defaults[setting] != 0) ? 1 : 0;
        return tuPref->getIntValue(keys[setting], defaults[setting]);
    }

    int value(Setting setting) const { return overloadingPref ? fields[setting] : preference(setting); }

    bool overloadingPref = false;
    int fields[kFieldCount] = {};
    QString objName;
    QString elementName;
    // Built once from the word: the getters ask the store at every call.
    QString keys[kSettingCount];
    int defaults[kSettingCount] = {};
};

KRC_NamingRules::ObjRules::ObjRules(QString const& objName)
    : d(new ObjRulesPrivate(objName))
{
}

KRC_NamingRules::ObjRules::ObjRules(ObjRules const& other)
    : d(new ObjRulesPrivate(*other.d))
{
}

KRC_NamingRules::ObjRules& KRC_NamingRules::ObjRules::operator=(ObjRules const& other)
{
    *d = *other.d;
    return *this;
}

KRC_NamingRules::ObjRules::~ObjRules()
{
    delete d;
}

bool KRC_NamingRules::ObjRules::automaticLeadingZeros() const
{
    return d->value(kLeadingZeros) != 0;
}

int KRC_NamingRules::ObjRules::numberOfZeros() const
{
    return d->value(kNumberOfZeros);
}

bool KRC_NamingRules::ObjRules::allowCustomName() const
{
    return d->value(kAllowCustom) != 0;
}

KRC_NamingRules::NameRule_t KRC_NamingRules::ObjRules::autoIncrementRule() const
{
    if (!d->overloadingPref && d->preference(kIncrementByN))
        return Rule_ByN;
    return NameRule_t(d->value(kIncrementRule));
}

int KRC_NamingRules::ObjRules::autoIncrementValue() const
{
    return d->value(kIncrementValue);
}

KRC_NamingRules::Delimiter_t KRC_NamingRules::ObjRules::nameSuffixDelimiter() const
{
    return Delimiter_t(d->value(kConflictDelimiter));
}

KRC_NamingRules::SuffixType_t KRC_NamingRules::ObjRules::nameSuffixType() const
{
    return SuffixType_t(d->value(kConflictType));
}

bool KRC_NamingRules::ObjRules::smartNameOnDrop() const
{
    return d->value(kSmartOnDrop) != 0;
}

bool KRC_NamingRules::ObjRules::resetNameOnNewParent() const
{
    return d->value(kResetOnNewParent) != 0;
}

QString const& KRC_NamingRules::ObjRules::objName() const
{
    return d->objName;
}

void KRC_NamingRules::ObjRules::setAutomaticLeadingZeros(bool value)
{
    d->fields[kLeadingZeros] = value;
}

void KRC_NamingRules::ObjRules::setNumberOfZeros(int value)
{
    d->fields[kNumberOfZeros] = value;
}

void KRC_NamingRules::ObjRules::setAllowCustomName(bool value)
{
    d->fields[kAllowCustom] = value;
}

void KRC_NamingRules::ObjRules::setAutoIncrementRule(NameRule_t value)
{
    d->fields[kIncrementRule] = value;
}

void KRC_NamingRules::ObjRules::setAutoIncrementValue(int value)
{
    d->fields[kIncrementValue] = value;
}

void KRC_NamingRules::ObjRules::setNameSuffixDelimiter(Delimiter_t value)
{
    d->fields[kConflictDelimiter] = value;
}

void KRC_NamingRules::ObjRules::setNameSuffixType(SuffixType_t value)
{
    d->fields[kConflictType] = value;
}

void KRC_NamingRules::ObjRules::setSmartNameOnDrop(bool value)
{
    d->fields[kSmartOnDrop] = value;
}

void KRC_NamingRules::ObjRules::setResetNameOnNewParent(bool value)
{
    d->fields[kResetOnNewParent] = value;
}

bool KRC_NamingRules::ObjRules::operator==(ObjRules const& other) const
{
    return d->objName == other.d->objName
        && std::equal(std::begin(d->fields), std::end(d->fields), std::begin(other.d->fields));
}

bool KRC_NamingRules::ObjRules::operator!=(ObjRules const& other) const
{
    return !(*this == other);
}

bool KRC_NamingRules::ObjRules::overloadingPref() const
{
    return d->overloadingPref;
}

void KRC_NamingRules::ObjRules::setOverloadingPref(bool value)
{
    d->overloadingPref = value;
}

void KRC_NamingRules::ObjRules::writeToXml(PIO_WritingContext& context) const
{
    PO_XmlWriter& writer = context.writer();
    writer.beginElement(d->elementName);
    for (int i = 0; i < kFieldCount; ++i) {
        if (kSettings[i].kind == kBool)
            writer.encodeBoolAttr(*kSettings[i].attribute, d->fields[i] != 0);
        else
            writer.encodeIntAttr(*kSettings[i].attribute, d->fields[i]);
    }
    writer.endElement();
}

void KRC_NamingRules::ObjRules::readFromXml(QXmlAttributes const& attributes)
{
    for (int i = 0; i < kFieldCount; ++i) {
        QString const& name = *kSettings[i].attribute;
        if (kSettings[i].kind == kInt)
            d->fields[i] = readInt(attributes, name);
        else
            readBoolField(attributes, name, d->fields[i]);
    }
}

void KRC_NamingRules::ObjRules::dumpToString(QString&) const { }

class KRC_NamingRulesPrivate
{
public:
    KRC_NamingRulesPrivate()
        : autoShowTotal(askBool(kPrefAutoShowTotal))
        , enabledAct(askBool(kPrefEnableAct))
        , sequenceRules(QStringLiteral("sequence"))
        , shotRules(QStringLiteral("shot"))
        , panelRules(QStringLiteral("panel"))
    {
    }

    // The three rules start with this switch, off.
    bool overloadingPref = false;
    bool autoShowTotal;
    bool enabledAct;
    KRC_NamingRules::ObjRules sequenceRules;
    KRC_NamingRules::ObjRules shotRules;
    KRC_NamingRules::ObjRules panelRules;
};

template class KRC_MetadataRecord<KRC_NamingRules, KRC_NamingRulesPrivate>;

bool KRC_NamingRules::isValid() const
{
    return true;
}

PIO_XML::ComponentReader* KRC_NamingRules::componentReader()
{
    return KRC_MetadataReader::create<NamingRulesMetadataReader>(this);
}

PIO_Metadata* KRC_NamingRules::clone() const
{
    return cloneKeepingIdentity();
}

void KRC_NamingRules::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
}

bool KRC_NamingRules::overloadingPref() const
{
    return priv().overloadingPref;
}

void KRC_NamingRules::setOverloadingPref(bool value)
{
    priv().overloadingPref = value;
    for (ObjRules* rules : { &priv().sequenceRules, &priv().shotRules, &priv().panelRules })
        rules->setOverloadingPref(value);
}

bool KRC_NamingRules::autoShowTotal() const
{
    return priv().overloadingPref ? priv().autoShowTotal : askBool(kPrefAutoShowTotal);
}

void KRC_NamingRules::setAutoShowTotal(bool value)
{
    priv().autoShowTotal = value;
}

bool KRC_NamingRules::enabledAct() const
{
    return priv().overloadingPref ? priv().enabledAct : askBool(kPrefEnableAct);
}

void KRC_NamingRules::setEnabledAct(bool value)
{
    priv().enabledAct = value;
}

KRC_NamingRules::ObjRules& KRC_NamingRules::sequenceRules()
{
    return priv().sequenceRules;
}

KRC_NamingRules::ObjRules const& KRC_NamingRules::sequenceRules() const
{
    return priv().sequenceRules;
}

KRC_NamingRules::ObjRules& KRC_NamingRules::shotRules()
{
    return priv().shotRules;
}

KRC_NamingRules::ObjRules const& KRC_NamingRules::shotRules() const
{
    return priv().shotRules;
}

KRC_NamingRules::ObjRules& KRC_NamingRules::panelRules()
{
    return priv().panelRules;
}

KRC_NamingRules::ObjRules const& KRC_NamingRules::panelRules() const
{
    return priv().panelRules;
}

QString KRC_NamingRules::delimiterStr(Delimiter_t delimiter)
{
    switch (delimiter) {
    case Delimiter_Underscore:
        return QStringLiteral("_");
    case Delimiter_Dot:
        return QStringLiteral(".");
    default:
        return QString();
    }
}

QString KRC_NamingRules::suffixTypeStr(SuffixType_t type)
{
    switch (type) {
    case Suffix_Number:
        return QStringLiteral("1");
    case Suffix_UpperLetter:
        return QStringLiteral("A");
    case Suffix_LowerLetter:
        return QStringLiteral("a");
    default:
        return QString();
    }
}

bool KRC_NamingRules::operator==(KRC_NamingRules const& other) const
{
    KRC_NamingRulesPrivate const& a = priv();
    KRC_NamingRulesPrivate const& b = other.priv();
    return a.overloadingPref == b.overloadingPref && a.autoShowTotal == b.autoShowTotal
        && a.enabledAct == b.enabledAct && a.sequenceRules == b.sequenceRules && a.shotRules == b.shotRules
        && a.panelRules == b.panelRules;
}

bool KRC_NamingRules::operator!=(KRC_NamingRules const& other) const
{
    return !(*this == other);
}

void KRC_NamingRules::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    KRC_NamingRulesPrivate const& p = priv();
    writeRecordElement(context, [&](PO_XmlWriter& writer) {
        writer.encodeBoolAttr(kAttrOverloadingPref, p.overloadingPref);
        writer.encodeBoolAttr(kAttrAutoShowTotal, p.autoShowTotal);
        writer.encodeBoolAttr(kAttrEnabledAct, p.enabledAct);
        p.sequenceRules.writeToXml(context);
        p.shotRules.writeToXml(context);
        p.panelRules.writeToXml(context);
    });
}

KRC_NamingRules::ObjRules* KRC_NamingRules::rulesOfElement(QString const& elementName)
{
    for (ObjRules* rules : { &priv().sequenceRules, &priv().shotRules, &priv().panelRules }) {
        if (rules->d->elementName == elementName)
            return rules;
    }
    return nullptr;
}

void KRC_NamingRules::readRecordElement(QXmlAttributes const& attributes)
{
    if (version() == kPIO_KRMETA_Version)
        readRecordAttributes(attributes);
    else if (version() == kVersionFlat)
        readFlatAttributes(attributes);
}

void KRC_NamingRules::readRecordAttributes(QXmlAttributes const& attributes)
{
    KRC_NamingRulesPrivate& p = priv();
    bool overloading = p.overloadingPref;
    if (KRC_MetadataReader::checkedBool(attributes, kAttrOverloadingPref, overloading))
        setOverloadingPref(overloading);
    KRC_MetadataReader::checkedBool(attributes, kAttrEnabledAct, p.enabledAct);
    KRC_MetadataReader::checkedBool(attributes, kAttrAutoShowTotal, p.autoShowTotal);
}

void KRC_NamingRules::readFlatAttributes(QXmlAttributes const& attributes)
{
    // The older form kept everything on one element; "allowCustomName" and
    // "autoIncrementRule" belonged to the panels, the rest to the shots.
    readRecordAttributes(attributes);
    int* shot = priv().shotRules.d->fields;
    int* panel = priv().panelRules.d->fields;
    readBoolField(attributes, kAttrAutomaticLeadingZeros, shot[kLeadingZeros]);
    shot[kNumberOfZeros] = readInt(attributes, kAttrNumberOfZeros);
    readBoolField(attributes, kAttrAllowCustomName, panel[kAllowCustom]);
    panel[kIncrementRule] = readInt(attributes, kAttrAutoIncrementRule);
    shot[kIncrementRule] = readInt(attributes, kAttrShotAutoIncrementRule);
    shot[kIncrementValue] = readInt(attributes, kAttrIncrementValue);
    shot[kConflictDelimiter] = readInt(attributes, kAttrConflictDelimiter);
    shot[kConflictType] = readInt(attributes, kAttrConflictType);
    readBoolField(attributes, kAttrSmartNameOnDrop, shot[kSmartOnDrop]);
}
