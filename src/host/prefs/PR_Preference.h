// User preferences of the stand-in preference library.
#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

/// A store of user preferences: named values of four kinds (bool, int, double,
/// string), each read with a default.
///
/// A getter answers its default for an unknown key and for a value that does not
/// convert to the asked kind (an int reads as a bool by != 0, a text "true"/"false" or
/// a number converts, "abc" as an int does not). A setter that changes the store
/// emits `preferenceChanged()`, once; setting the value a key already has emits nothing.
///
/// The store persists to a file at a path the host chooses, in UTF-8 lines of the form
///     <kind> <key> = <value>
/// where <kind> is bool, int, double or string; blank lines and lines starting with
/// '#' are ignored; in keys and values a backslash escapes "\\", "\n", "\r", "\t", "\s"
/// (a space; keys hold no raw space) and "\uHHHH" (any other control character).
/// Doubles are written so that they read back bit-exact. `load` of a missing file gives
/// an empty store; a damaged file gives an empty store and false, with `errorString()`
/// naming the line. Nothing is ever half-read.
///
/// The process-wide preference object is `tuPref`; it may be null and every reader
/// must cope with that. Threading: host's thread.
class PR_Preference : public QObject
{
    Q_OBJECT

public:
    explicit PR_Preference(QObject* parent = nullptr);
    ~PR_Preference() override;

    /// The bool value of `key`, false when there is none.
    bool getBool(QString const& key) const;
    bool getBoolValue(QString const& key, bool defaultValue) const;
    int getIntValue(QString const& key, int defaultValue) const;
    double getDoubleValue(QString const& key, double defaultValue) const;
    /// The text of `key` (any kind reads as its written form).
    QString getStringValue(QString const& key, QString const& defaultValue) const;

    void setBoolValue(QString const& key, bool value);
    void setIntValue(QString const& key, int value);
    void setDoubleValue(QString const& key, double value);
    void setStringValue(QString const& key, QString const& value);

    bool contains(QString const& key) const;
    QStringList keys() const;
    void remove(QString const& key);
    void clear();

    /// Replaces the store by the file's content; see the class comment.
    bool load(QString const& path);
    /// Writes the store to `path` atomically (the old file stays on failure).
    bool save(QString const& path) const;
    /// What went wrong in the last `load` or `save` that failed.
    QString errorString() const;

signals:
    void preferenceChanged();

private:
    void setValue(QString const& key, QVariant const& value);
    void replaceAll(QMap<QString, QVariant> const& values);
    /// Reads `path` into `store`; an empty string, or what is wrong with the file.
    static QString readStore(QString const& path, QMap<QString, QVariant>& store);

    class PR_PreferencePrivate;
    PR_PreferencePrivate* d;
};

/// The process-wide preferences, set by the host; null when the host has none.
extern PR_Preference* tuPref;
