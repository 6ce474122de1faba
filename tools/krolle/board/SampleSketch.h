// Sample drawings to try a board made from images.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

// A numbered sample drawing: a few simple shapes placed by its number on a
// light ground, and the number itself in large print, so that a printed board
// shows at a glance which drawing stands where. The same number and size
// always give the same picture. Needs a QGuiApplication (fonts). Single-threaded.
class SampleSketch
{
public:
    static QImage draw(unsigned number, const QSize& size);
    // The file name of the n-th of a row of sketches (from 1): shots of two to
    // four panels, "SH010_p1.png", "SH010_p2.png", "SH020_p1.png"...
    static QString fileName(unsigned number);
};
