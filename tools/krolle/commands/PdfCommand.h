// krolle pdf: printed pages of a storyboard.
#pragma once

#include "Command.h"

// Prints the panels of a project to a PDF file (BoardPrinter): a grid of
// panels to a page with their pictures, names, lengths and chosen fields. The
// file is written atomically. Runs under a QGuiApplication (see main), since
// painting text needs fonts.
class PdfCommand : public Command
{
public:
    PdfCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
