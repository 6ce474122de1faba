// The XML form of a scene's node network, with its element columns and drawings.
#pragma once

#include <QString>

class PO_XmlGuard;
class QXmlStreamWriter;
class SC_SceneCommon;

/// Writes and reads the node network of one scene as one "nodes" element:
///
///     <nodes>
///       <node type="TUPegModule" id="1" name="Peg" locked="false" enabled="1" cameraAlignment="0"/>
///       <node type="MO_ElementModule" id="2" name="A" parent="1" ... opacity="100">
///         <element id="7" name="A" kind="kvg">
///           <drawing id="1" file="/project/elements/A/A-1.kvg"/>
///           <exposure first="1" last="12" drawing="1"/>
///         </element>
///       </node>
///       <node type="TUGroup" id="3" name="Sub"> <node .../> </node>
///     </nodes>
///
/// The root group is implied: top-level "node" elements are its children, and a
/// group's children are nested in it, in list order. "id" numbers the nodes within
/// the element; "parent" names the node linked above by that number. An element
/// module's column (element id, kind "other", "kvg", "bitmap" or "3d", drawings and
/// exposures) is its "element" child.
///
/// Reading is all or nothing: the whole element is checked first, and on any fault
/// the scene is left as it was, the answer is false, and `error` (and the reader's
/// own error) says what is wrong, naming the line and column. Threading: the host's.
namespace HostNodeXml {

/// Writes the scene's network as one "nodes" element.
void write(QXmlStreamWriter& writer, SC_SceneCommon const& scene);
/// Reads a "nodes" element: the reader stands on its start and, on success, ends on
/// its end. The nodes read are appended to the scene's root group, their columns to
/// the scene's timed values. Node edits are not posted (a loaded network is no
/// edit), but the scene's own primitives post the columns added (timedValuesAdded)
/// and their links (nodeLinksChanged): a loader clears its change manager after.
bool read(PO_XmlGuard& reader, SC_SceneCommon& scene, QString* error = nullptr);

} // namespace HostNodeXml
