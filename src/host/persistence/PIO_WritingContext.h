// What a record is given when it writes itself.
#pragma once

#include <QString>

class PO_XmlWriter;

/// The writer of the save in progress and its named flags (for instance "for_drag",
/// on while records are written for a drag and drop rather than to a file). A flag
/// never set reads false. Threading: the thread of the save.
class PIO_WritingContext
{
public:
    explicit PIO_WritingContext(PO_XmlWriter& writer);
    ~PIO_WritingContext();
    PIO_WritingContext(PIO_WritingContext const&) = delete;
    PIO_WritingContext& operator=(PIO_WritingContext const&) = delete;

    PO_XmlWriter& writer() const;
    void SetAttribute(QString const& name, bool value);
    bool GetAttribute(QString const& name) const;

private:
    class PIO_WritingContextPrivate;
    PIO_WritingContextPrivate* d;
};
