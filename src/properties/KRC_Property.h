// A named, typed, observable value on QVariant.
#pragma once

#include "host/base/HostBase.h"
#include "properties/KRC_PropertyDefinition.h"
#include "properties/KRC_PropertyObservable.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

class QDataStream;
class QDomDocument;
class QDomElement;
class KRC_PropertyPrivate;

/// A name, a QVariant value and an optional shared KRC_PropertyDefinition.
///
/// A new property holds an invalid value and takes on the type of its first value;
/// later values are converted to that type or refused (setValue). A definition that
/// says read-only lets the first value in and refuses every later one. validate()
/// lets variants (KRC_PropertyFromRange, ...) refuse or mend a value; a refused value
/// leaves the previous one in place and tells nobody. Every accepted setValue tells
/// the observers through onPropertyModified, also when the value did not change;
/// destruction tells them through onPropertyDeleted.
///
/// Text forms: valueToString/setValueFromString for the types Bool, Int, UInt,
/// LongLong, ULongLong, Double, List, String, StringList, Date, Time, DateTime and
/// Color; toScriptString gives a value in the host's script language and
/// regenarationScript the line of script that would build the property again.
/// Stream form: name, value, long and short description, read-only and internal
/// flags, in the form of the stream's version. XML: an element named after the
/// property with the text form in its attribute "value". Bad input gives a qWarning
/// with a fixed text and a false or null result, and keeps the previous value.
///
/// Copies take the name, the value and the definition (shared) and become watched by
/// the same observers, without telling them; clone() makes an unwatched copy.
/// Threading: the host's thread; only the definition's reference count is atomic.
class KRC_Property : public KRC_PropertyObservable
{
public:
    explicit KRC_Property(QString const& name);
    /// The value is adopted as it is, even under a read-only definition.
    KRC_Property(QString const& name, QVariant const& value, UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_Property(
        QString const& name, KRC_Property const& other, UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_Property(KRC_Property const& other);
    KRC_Property& operator=(KRC_Property const& other);
    ~KRC_Property() override;

    /// Takes the other's value only; this property keeps its type and definition.
    virtual bool setValue(KRC_Property const& other);
    virtual bool setValue(QVariant const& value);
    /// True when the value is acceptable; with `fix`, variants may mend it.
    virtual bool validate(bool fix);
    virtual bool store(QDomDocument& document, QDomElement& parent) const;
    virtual bool store(QDataStream& out) const;
    /// False when the element is not named after this property or its text does not set.
    virtual bool load(QDomElement& element);
    /// Reads name, value and definition without setValue: no conversion, no read-only
    /// test, no notification; a property without a definition gets a default one. On a
    /// damaged stream nothing is changed and the result is false.
    virtual bool load(QDataStream& in);
    virtual KRC_Property* clone() const;
    virtual QString regenarationScript(QString const& objectName);
    virtual int propertyType() const;

    QString const& name() const;
    QVariant const& value() const;
    int type() const;
    char const* typeName() const;
    bool isValid() const;
    bool isNull() const;
    bool canConvert(QVariant::Type type) const;

    int toInt() const;
    uint toUInt() const;
    double toDouble() const;
    qlonglong toLongLong() const;
    qulonglong toULongLong() const;
    bool toBool() const;
    QString toString() const;
    /// An invalid colour when the value is no colour.
    QColor toColor() const;

    UT_SharedPtr<KRC_PropertyDefinition> definition() const;
    /// Texts of the definition, null without one.
    QString ldesc() const;
    QString sdesc() const;
    /// Flags of the definition, false without one.
    bool isReadOnly() const;
    bool isInternal() const;
    /// Change the shared definition (so every property that shares it); no-op without one.
    void setReadOnly(bool readOnly);
    void setInternal(bool internal);

    /// Equal when QVariant says so, or when both are strings that are equal with a
    /// null and an empty string counted as equal. Names and definitions play no part.
    bool operator==(KRC_Property const& other) const;
    bool operator!=(KRC_Property const& other) const;

    QString valueToString() const;
    /// Parses by the present type; a property that holds no value yet can't be set.
    bool setValueFromString(QString const& text);

    static QString toScriptString(QVariant const& value);
    QString toScriptString() const;

protected:
    /// "true" or "false", as the script forms write flags.
    static QString scriptBool(bool value);
    /// "new Array( a, b )" of items already in script form.
    static QString scriptArray(QStringList const& items);
    /// Stores a value with no test, conversion or notification (for validate).
    void assignValue(QVariant const& value);
    /// Reads the six common stream items, then `readExtra` (may be empty), and only if
    /// the stream stayed good takes over the common items. A variant takes over its own
    /// items after a true result.
    bool loadItems(QDataStream& in, std::function<bool(QDataStream&)> const& readExtra);

private:
    KRC_PropertyPrivate* d;
};
