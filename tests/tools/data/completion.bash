# bash completion for krolle; made by 'krolle completion bash'
_krolle()
{
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} options
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W "demo new outline at rules insert-shot insert-panel check export import fields set layers camera drawings defaults track changes import-images pdf sketches show rename lock-names remove move set-length add-transition remove-transition completion man help version --help --version -V" -- "$cur"))
        return
    fi
    case "${COMP_WORDS[1]} $prev" in
        'at --prefer') COMPREPLY=($(compgen -W "previous next" -- "$cur")); return ;;
        'export --format') COMPREPLY=($(compgen -W "otio edl csv" -- "$cur")); return ;;
        'export --by') COMPREPLY=($(compgen -W "panel shot" -- "$cur")); return ;;
        'import-images --group') COMPREPLY=($(compgen -W "image shot sequence" -- "$cur")); return ;;
        'pdf --page') COMPREPLY=($(compgen -W "a4 letter a3" -- "$cur")); return ;;
    esac
    case ${COMP_WORDS[1]} in
        help) COMPREPLY=($(compgen -W "demo new outline at rules insert-shot insert-panel check export import fields set layers camera drawings defaults track changes import-images pdf sketches show rename lock-names remove move set-length add-transition remove-transition completion man" -- "$cur")); return ;;
        demo) options="--out --force --help" ;;
        new) options="--shots --panels-per-shot --transition-every --acts --sequences --seed --layers --force --help" ;;
        outline) options="--json --fps --drop-frame --start-tc --fields --layers --help" ;;
        at) options="--prefer --fps --drop-frame --start-tc --json --help" ;;
        rules) options="--set --json --help" ;;
        insert-shot) options="--dry-run --json --after --before --sequence --length --fps --drop-frame --start-tc --panels --help" ;;
        insert-panel) options="--dry-run --json --after --before --sequence --length --fps --drop-frame --start-tc --shot --help" ;;
        check) options="--json --help" ;;
        export) options="--format --by --fps --drop-frame --start-tc --out --json --help" ;;
        import) options="--out --fps --force --json --help" ;;
        fields) options="--add --image --project --before --rename --move --hide --show --remove --json --help" ;;
        set) options="--panel --project --field --value --json --help" ;;
        layers) options="--panel --json --help" ;;
        camera) options="--json --shot --fps --drop-frame --start-tc --help" ;;
        drawings) options="--panel --json --help" ;;
        defaults) options="--json --help" ;;
        track) options="--panel --note --off --json --help" ;;
        changes) options="--since --until --tracked --untracked --json --help" ;;
        import-images) options="--out --length --fps --group --field --copy --link --force --json --help" ;;
        pdf) options="--out --layout --page --landscape --fields --from --to --fps --drop-frame --start-tc --json --help" ;;
        sketches) options="--count --size --json --help" ;;
        show) options="--shot --panel --transition --json --help" ;;
        rename) options="--dry-run --json --shot --panel --sequence --act --to --auto --help" ;;
        lock-names) options="--dry-run --json --from --to --panels --help" ;;
        remove) options="--dry-run --json --shot --panel --transition --help" ;;
        move) options="--dry-run --json --shot --panel --after --before --help" ;;
        set-length) options="--dry-run --json --shot --panel --length --fps --drop-frame --start-tc --help" ;;
        add-transition) options="--dry-run --json --after --before --length --fps --drop-frame --start-tc --type --angle --reverse --help" ;;
        remove-transition) options="--dry-run --json --transition --help" ;;
        completion) options="--help" ;;
        man) options="--out --help" ;;
    esac
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
    else
        COMPREPLY=($(compgen -f -- "$cur"))
    fi
}
complete -o filenames -F _krolle krolle
