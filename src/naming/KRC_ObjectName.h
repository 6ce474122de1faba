// A stored name with its flag word, as the info records keep it.
#pragma once

#include <QString>

class KRC_ObjectNamePrivate;

/// The text of a shot, panel, sequence or act name and its flag word.
///
/// Bit 0 (kLocked) of the flag word marks a name the user may not change, bit 1
/// (kCustom) a name typed by the user, which stands as it is; a name without the
/// custom bit is automatic and its text is computed from the object's place. The two
/// bits are independent: a locked automatic name is possible. Other bits of the word
/// are kept as they are and mean nothing here.
///
/// A plain value: copies and assignment take both the text and the flag, and a copy
/// is independent of its source. A new name has a null text and flag 0.
/// Threading: the host's thread, like the records that hold it.
class KRC_ObjectName
{
public:
    enum Flag
    {
        kLocked = 0x1,
        kCustom = 0x2
    };

    KRC_ObjectName();
    KRC_ObjectName(KRC_ObjectName const& other);
    KRC_ObjectName& operator=(KRC_ObjectName const& other);
    virtual ~KRC_ObjectName();

    QString const& value() const;
    void setValue(QString const& value);

    int flag() const;
    /// Stores the whole flag word and returns the one it replaces.
    int setFlag(int flag);

    bool isCustom() const;
    bool isAuto() const;
    bool isLocked() const;

private:
    KRC_ObjectNamePrivate* d;
};
