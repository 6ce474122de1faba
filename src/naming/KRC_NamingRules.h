// The project's naming rules of sequences, shots and panels.
#pragma once

#include "metadata/KRC_MetadataRecord.h"

#include <QString>

class KRC_NamingRulesPrivate;
class NamingRulesMetadataReader;
class QXmlAttributes;

/// The project's one "namingRules" record: how sequences, shots and panels are
/// named, and two project-wide switches.
///
/// It is a thin overlay on the user's preferences (the process-wide `tuPref`):
/// while `overloadingPref()` is false every getter asks the preference store, at
/// each call, and the values stored in the record lie dormant; once it is true the
/// stored values answer. Setters always store, whatever the switch says. The
/// stored values start as a snapshot of the preferences taken at construction.
///
/// Of the values held here, only the leading zeros and the counting rule with its
/// step take part in the name arithmetic of KRC_NameHelper; the conflict suffix,
/// the drop and move rules, the panel total and the acts switch are kept and
/// persisted for the application above.
///
/// The XML written is always of version "2.0"; records of version "1.0" (the flat
/// older form) and "2.0" are read. Threading: the host's thread.
class KRC_NamingRules : public KRC_MetadataRecord<KRC_NamingRules, KRC_NamingRulesPrivate>
{
    class ObjRulesPrivate;

public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    /// Counting rules, persisted as plain integers.
    enum NameRule_t : int
    {
        Rule_Numeric = 0, ///< 1, 2, 3 ...
        Rule_Alpha = 1, ///< A ... Z, AA, AB ... AZ, BA ...
        Rule_AlphaZPrefix = 2, ///< A ... Z, ZA ... ZZ, ZAA, ZAB ...
        Rule_AlphaZRepeat = 3, ///< A ... Z, ZA ... ZZ, ZZA ... ZZZ, ZZZA ...
        Rule_ByN = 4 ///< multiples of autoIncrementValue
    };

    /// Delimiter put before a conflict suffix; see delimiterStr.
    enum Delimiter_t : int
    {
        Delimiter_None = 0,
        Delimiter_Underscore = 1,
        Delimiter_Dot = 2
    };

    /// Kind of conflict suffix; see suffixTypeStr.
    enum SuffixType_t : int
    {
        Suffix_None = 0,
        Suffix_Number = 1,
        Suffix_UpperLetter = 2,
        Suffix_LowerLetter = 3
    };

    /// The rules of one kind of object, made from its word ("sequence", "shot",
    /// "panel"). The preference key of each getter is built from the word in upper
    /// case; a word that is none of the three has defaults false and 0.
    ///
    /// A getter answers from its field while the rules overload the preferences and
    /// from the preference store otherwise. `autoIncrementRule` asks two keys: a true
    /// "ST_%1_NAME_AUTO_INCREMENT_BY_N" gives Rule_ByN without looking at the rule key.
    /// Copies are deep and independent.
    class ObjRules
    {
    public:
        explicit ObjRules(QString const& objName);
        ObjRules(ObjRules const& other);
        ObjRules& operator=(ObjRules const& other);
        virtual ~ObjRules();

        bool automaticLeadingZeros() const;
        int numberOfZeros() const;
        bool allowCustomName() const;
        NameRule_t autoIncrementRule() const;
        int autoIncrementValue() const;
        Delimiter_t nameSuffixDelimiter() const;
        SuffixType_t nameSuffixType() const;
        bool smartNameOnDrop() const;
        bool resetNameOnNewParent() const;
        /// The word given at construction, as given.
        QString const& objName() const;

        void setAutomaticLeadingZeros(bool value);
        void setNumberOfZeros(int value);
        void setAllowCustomName(bool value);
        void setAutoIncrementRule(NameRule_t value);
        /// The step of Rule_ByN; it must not be 0.
        void setAutoIncrementValue(int value);
        void setNameSuffixDelimiter(Delimiter_t value);
        void setNameSuffixType(SuffixType_t value);
        void setSmartNameOnDrop(bool value);
        void setResetNameOnNewParent(bool value);

        /// Compares the word and every stored value, not the override switch.
        bool operator==(ObjRules const& other) const;
        bool operator!=(ObjRules const& other) const;

    protected:
        friend class KRC_NamingRules;
        friend class NamingRulesMetadataReader;

        bool overloadingPref() const;
        void setOverloadingPref(bool value);
        /// Writes the element "<word>_rules" with the stored values.
        void writeToXml(PIO_WritingContext& context) const;
        /// Reads the attributes of a "<word>_rules" element: booleans only when they
        /// parse, integers always (a missing one reads 0).
        void readFromXml(QXmlAttributes const& attributes);
        /// Adds nothing: the record's dump is its identity.
        void dumpToString(QString& out) const;

    private:
        ObjRulesPrivate* d;
    };

    /// (metaName), (metaName, creator, version) and the default with a null
    /// metaName; copy and assignment take every field, the rules' switches included.
    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    /// A new reader bound to this record; the caller owns it through its count.
    PIO_XML::ComponentReader* componentReader() override;
    /// A copy with this record's identity; the caller owns it.
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    bool overloadingPref() const;
    /// Switches the record and its three rules between stored values and preferences.
    void setOverloadingPref(bool value);
    /// Panel names show a total; "ST_PANEL_NAME_AUTO_SHOW_TOTAL" without override.
    bool autoShowTotal() const;
    void setAutoShowTotal(bool value);
    /// Acts are in use; "ST_ENABLE_ACT" without override.
    bool enabledAct() const;
    void setEnabledAct(bool value);

    ObjRules& sequenceRules();
    ObjRules const& sequenceRules() const;
    ObjRules& shotRules();
    ObjRules const& shotRules() const;
    ObjRules& panelRules();
    ObjRules const& panelRules() const;

    /// "_" for Delimiter_Underscore, "." for Delimiter_Dot, empty otherwise.
    static QString delimiterStr(Delimiter_t delimiter);
    /// "1", "A" or "a" for the number and letter suffixes, empty otherwise.
    static QString suffixTypeStr(SuffixType_t type);

    /// Compares the stored values (no preference is asked): the switches and the
    /// three rules, whose own override switches do not count.
    bool operator==(KRC_NamingRules const& other) const;
    bool operator!=(KRC_NamingRules const& other) const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;

private:
    friend class NamingRulesMetadataReader;

    /// The rules that the element "<word>_rules" holds, or null.
    ObjRules* rulesOfElement(QString const& elementName);
    /// Reads the record's own element as its version tells: "2.0" holds the
    /// switches only, "1.0" the flat older form; other versions are not read.
    void readRecordElement(QXmlAttributes const& attributes);
    void readRecordAttributes(QXmlAttributes const& attributes);
    void readFlatAttributes(QXmlAttributes const& attributes);
};
