// krolle fields: the info field definitions of a project, and their edits.
#pragma once

#include "Command.h"

#include <QJsonArray>

class KRC_KrolleProject;

// Lists the project and panel field definitions (hidden ones marked), or makes one
// edit through the library's view and saves the file: --add, --rename, --move,
// --hide, --show, --remove. A panel field is added to every panel with an empty
// value; removing one removes every panel's value. Unknown names are failures
// (status 1) and leave the file untouched.
class FieldsCommand : public Command
{
public:
    FieldsCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;

private:
    // The edit the command line asks for, done on the view; its report line.
    QString edit(KRC_KrolleProject& view, const ArgumentValues& arguments, const QString& file) const;
    // Every definition as JSON, project fields first.
    QJsonArray definitions(KRC_KrolleProject& view) const;
};
