#compdef krolle
# zsh completion for krolle; made by 'krolle completion zsh'
_krolle()
{
    local -a commands
    commands=(
        'demo:build the sample storyboard, save it if asked, and outline it'
        'new:generate a storyboard project of any size'
        'outline:list acts, sequences, shots, panels and transitions with their frames'
        'at:show the act, sequence, shot, panel and transition at a frame'
        'rules:show the naming rules in force, or change them with --set'
        'insert-shot:insert a shot after or before a named shot, and save'
        'insert-panel:insert a panel after or before a named panel, and save'
        'check:report invalid records, names off the rules, names used twice'
        'export:write the storyboard as an OTIO cut, a CMX 3600 EDL or a CSV shot list'
        'import:build a project from an OpenTimelineIO cut'
        'fields:list the info field definitions, or change one and save'
        'set:set an info field'\''s value on a panel or the project, and save'
        'layers:list the layers of a panel, in order'
        'camera:show the camera matrices at a frame, shot or panel'
        'drawings:list the drawings the panels show'
        'defaults:show the default layers of new panels'
        'track:set a panel'\''s tracking record, and save'
        'changes:list the panels that changed, with their dates and notes'
        'import-images:build a board from a folder of drawings'
        'pdf:print the storyboard'\''s panels to PDF pages'
        'sketches:draw numbered sample drawings into a folder'
        'show:show everything known of one shot, panel or transition'
        'rename:give a shot, panel, sequence or act a custom name, or its automatic one back'
        'lock-names:keep the automatic names of shots (and panels) as custom'
        'remove:remove a shot, panel or transition'
        'move:move a shot, or a panel within or across shots'
        'set-length:give a shot or a panel a new length in frames'
        'add-transition:add a transition after or before a shot'
        'remove-transition:remove a transition'
        'completion:print a shell completion script (bash or zsh)'
        'man:print the manual page krolle(1) in roff'
        'help:show the help of a command'
        'version:show the version'
    )
    if (( CURRENT == 2 )); then
        _describe 'command' commands
        return
    fi
    shift words
    (( CURRENT-- ))
    case $words[1] in
        demo) _arguments '*:file:_files' '--out[also save the sample to FILE (- for standard output, alone)]:FILE:_files' '--force[overwrite FILE if it exists]' ;;
        new) _arguments '*:file:_files' '--shots[number of shots (10)]:N:_files' '--panels-per-shot[panels in each shot (4)]:M:_files' '--transition-every[a transition after every K-th shot (0\: none)]:K:_files' '--acts[acts, named "Act 1"..., each of whole sequences (1; 0\: no acts; at most S)]:A:_files' '--sequences[sequences, named SQ010, SQ020... (1; 0\: no sequences)]:S:_files' '--seed[seed of the panel and transition lengths (1)]:X:_files' '--layers[layers drawn into each panel (0)\: background, drawings, pegs, 3D models]:N:_files' '--force[overwrite FILE if it exists]' ;;
        outline) _arguments '*:file:_files' '--json[print one JSON document (see docs/tool.md)]' '--fps[also show timecodes at F frames per second (24, 29.97...)]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' '--fields[also show the panels'\'' visible info field values, as plain text]' '--layers[also show the number of layers of each panel]' ;;
        at) _arguments '*:file:_files' '--prefer[under a transition, show only the shot before or after it]:previous|next:(previous next)' '--fps[also show timecodes at F frames per second (24, 29.97...)]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        rules) _arguments '*:file:_files' '--set[change rules in the project'\''s record and save the file]:KEY=VALUE:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        insert-shot) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--after[insert after this shot (name, #number or id)]:NAME:_files' '--before[insert before this shot (name, #number or id)]:NAME:_files' '--sequence[look for the shot in this sequence only]:NAME:_files' '--length[length of each new panel (12), or a duration HH\:MM\:SS\:FF with --fps]:FRAMES:_files' '--fps[the rate of a --length given as a duration]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' '--panels[panels of the new shot (1)]:N:_files' ;;
        insert-panel) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--after[insert after this panel (name, #number or id)]:NAME:_files' '--before[insert before this panel (name, #number or id)]:NAME:_files' '--sequence[look for the shot in this sequence only]:NAME:_files' '--length[length of each new panel (12), or a duration HH\:MM\:SS\:FF with --fps]:FRAMES:_files' '--fps[the rate of a --length given as a duration]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' '--shot[the shot of the panel (name, #number or id)]:NAME:_files' ;;
        check) _arguments '*:file:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        export) _arguments '*:file:_files' '--format[what to write]:otio|edl|csv:(otio edl csv)' '--by[one clip or row per panel (default) or per shot]:panel|shot:(panel shot)' '--fps[frames per second of the times written (24; 29.97, 24000/1001...)]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' '--out[file to write (standard output when absent or -)]:PATH:_files' '--json[with --out, report what was written as JSON]' ;;
        import) _arguments '*:file:_files' '--out[project file to write]:FILE:_files' '--fps[frames per second of the board (the cut'\''s own rate when absent)]:F:_files' '--force[overwrite the project file if it exists]' '--json[report what was built as JSON]' ;;
        fields) _arguments '*:file:_files' '--add[add a text field (an image with --image)]:NAME:_files' '--image[with --add\: an image field]' '--project[work on the project'\''s own fields, not the panels'\'']' '--before[with --add or --move\: in front of that field]:NAME:_files' '--rename[rename a field to NEW]:OLD:_files' '--move[move a field (to the end without --before)]:NAME:_files' '--hide[hide a field]:NAME:_files' '--show[show a hidden field]:NAME:_files' '--remove[remove a field and all its values]:NAME:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        set) _arguments '*:file:_files' '--panel[the panel, by names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--project[set a project field instead of a panel'\''s]' '--field[the field, by its name]:NAME:_files' '--value[the new value (plain text, or an image'\''s key)]:TEXT:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        layers) _arguments '*:file:_files' '--panel[the panel, by names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        camera) _arguments '*:file:_files' '--json[print one JSON document (see docs/tool.md)]' '--shot[count the frame from 1 inside this shot (name, #number or id)]:SHOT:_files' '--fps[the rate of a WHERE given as a timecode]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' ;;
        drawings) _arguments '*:file:_files' '--panel[only this panel, by names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        defaults) _arguments '*:file:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        track) _arguments '*:file:_files' '--panel[the panel, by names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--note[why the panel is tracked]:TEXT:_files' '--off[mark the panel as not tracked]' '--json[print one JSON document (see docs/tool.md)]' ;;
        changes) _arguments '*:file:_files' '--since[only changes on or after this day (YYYY-MM-DD)]:DATE:_files' '--until[only changes on or before this day (YYYY-MM-DD)]:DATE:_files' '--tracked[only panels marked as tracked]' '--untracked[only panels not marked as tracked]' '--json[print one JSON document (see docs/tool.md)]' ;;
        import-images) _arguments '*:file:_files' '--out[project file to write]:FILE:_files' '--length[frames of each panel (two seconds at --fps)]:FRAMES:_files' '--fps[frames per second of the board (24)]:F:_files' '--group[one shot per image (default), shots or sequences by file name]:image|shot|sequence:(image shot sequence)' '--field[the panels'\'' image field ("Sketch")]:NAME:_files' '--copy[copy the images to FILE'\''s folder, in BOARD_images (default)]' '--link[name the images where they are]' '--force[overwrite the project file if it exists]' '--json[report what was built as JSON]' ;;
        pdf) _arguments '*:file:_files' '--out[PDF file to write]:BOARD.pdf:_files' '--layout[panels across and down a page (2x3; 3x2 in landscape)]:COLSxROWS:_files' '--page[paper size (a4)]:a4|letter|a3:(a4 letter a3)' '--landscape[turn the paper]' '--fields[panel fields printed under each panel (the visible text fields)]:NAME,...:_files' '--from[first shot to print]:SHOT:_files' '--to[last shot to print]:SHOT:_files' '--fps[frames per second of the timecodes (24)]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' '--json[report what was written as JSON]' ;;
        sketches) _arguments '*:file:_files' '--count[how many (12)]:N:_files' '--size[pixels of each (640x360)]:WxH:_files' '--json[report the files written as JSON]' ;;
        show) _arguments '*:file:_files' '--shot[show this shot\: its name, #number or id]:SHOT:_files' '--panel[show this panel\: names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--transition[show this transition\: its #number or id]:TRANSITION:_files' '--json[print one JSON document (see docs/tool.md)]' ;;
        rename) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--shot[rename this shot\: its name, #number or id]:SHOT:_files' '--panel[rename this panel\: names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--sequence[rename this sequence\: its name or #number]:SEQUENCE:_files' '--act[rename this act\: its name or #number]:ACT:_files' '--to[the new custom name]:NAME:_files' '--auto[go back to the automatic name]' ;;
        lock-names) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--from[first shot of the range (the first)]:SHOT:_files' '--to[last shot of the range (the last)]:SHOT:_files' '--panels[also the names of the panels of those shots]' ;;
        remove) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--shot[remove this shot\: its name, #number or id]:SHOT:_files' '--panel[remove this panel\: names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--transition[remove this transition\: its #number or id]:TRANSITION:_files' ;;
        move) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--shot[move this shot\: its name, #number or id]:SHOT:_files' '--panel[move this panel\: names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--after[put it after this shot (or SHOT/PANEL)]:PLACE:_files' '--before[put it before this shot (or SHOT/PANEL)]:PLACE:_files' ;;
        set-length) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--shot[resize this shot\: its name, #number or id]:SHOT:_files' '--panel[resize this panel\: names or #numbers of its shot and itself, or its id]:SHOT/PANEL:_files' '--length[the new length, or a timecode duration with --fps]:FRAMES:_files' '--fps[the rate of a length given as a timecode]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' ;;
        add-transition) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--after[at the end of this shot]:SHOT:_files' '--before[at the start of this shot]:SHOT:_files' '--length[its length, or a timecode duration with --fps]:FRAMES:_files' '--fps[the rate of a length given as a timecode]:F:_files' '--drop-frame[with --fps 29.97 or 59.94\: drop-frame timecodes (HH\:MM\:SS;FF)]' '--start-tc[with --fps\: the timecode of frame 1 (00\:00\:00\:00)]:TC:_files' '--type[dissolve, wipe, clock-wipe, slide, edge-wipe (dissolve)]:TYPE:_files' '--angle[angle of a wipe, 0 to 359 (0)]:DEGREES:_files' '--reverse[run it the other way]' ;;
        remove-transition) _arguments '*:file:_files' '--dry-run[say what would change, and write nothing]' '--json[print one JSON document (see docs/tool.md)]' '--transition[remove this transition\: its #number or id]:TRANSITION:_files' ;;
        completion) _arguments '*:file:_files' ;;
        man) _arguments '*:file:_files' '--out[write the page to FILE (standard output when absent or -)]:FILE:_files' ;;
        help) _describe 'command' commands ;;
    esac
}
_krolle "$@"
