// Bounds on the chains of scenes showing scenes that a project file describes.
#pragma once

#include <QString>

#include <memory>

class QXmlStreamReader;

/// Follows, element by element, which scene each scene's blocks show in a project file
/// as it is read (each block before the reader builds it), and refuses a chain of
/// scenes showing scenes longer than `maxDepth`, or one that closes on itself. A storyboard chains 3
/// (top, symbol, panel) however many panels it holds, so the bound costs no real
/// project anything, while a file of 60,000 chained scenes is refused at its 17th
/// link, with the scenes before it built, instead of after building all of them.
///
/// Each link walks at most `maxDepth` scenes up and down, so a scan stays linear. A
/// scene shown twice, or by itself, is left to the reader, which names that fault in
/// its own words; only the first block that shows a scene counts here.
/// Threading: one scan on one thread.
class HostSceneChains
{
public:
    static constexpr int maxDepth = 16;

    HostSceneChains();
    ~HostSceneChains();
    HostSceneChains(HostSceneChains const&) = delete;
    HostSceneChains& operator=(HostSceneChains const&) = delete;

    /// To be called at each start element, `depth` counting the root as 1 (a
    /// PO_XmlGuard's ElementCheck); the reason to refuse the file, or a null string.
    QString startElement(QXmlStreamReader const& xml, int depth);

private:
    struct Private;
    std::unique_ptr<Private> const d;
};
