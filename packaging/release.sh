# What the packaging commands share. To be sourced after tools/setup.sh, with `root` set.

# The time that goes into the packages: of the last change, or else of the release.
source_date() {
    git -c safe.directory="$root" -C "$root" log -1 --format=%ct 2>/dev/null ||
        dpkg-parsechangelog -l "$root/packaging/debian/changelog" -S Timestamp
}

# judge TOOL COMMAND... runs a validator and objects to every remark that is not explained in remarks.txt.
judge() {
    local tool=$1 line known good=0
    shift
    while IFS= read -r line; do
        [ -n "$line" ] || continue
        if known=$(explained "$tool" "$line"); then
            say "  $tool: $line"
            say "      known: $known"
        else
            say "  $tool: $line  <- not explained in packaging/remarks.txt"
            good=1
        fi
    done < <("$@" 2>&1 | grep -vE '^($|✔|✘|N: )')
    return "$good"
}

# explained TOOL LINE prints why the remark stays.
explained() {
    local tool pattern reason
    while IFS='|' read -r tool pattern reason; do
        [ "$tool" = "$1" ] && [[ $2 == *$pattern* ]] && printf '%s\n' "$reason" && return 0
    done < <(grep -v '^#' "$root/packaging/remarks.txt")
    return 1
}

# judge_sources validates what the packages are made of, judge_packages PACKAGE... the packages.
judge_sources() {
    local failed=0 entry
    for entry in "$root"/packaging/desktop/*.desktop; do
        judge desktop-file-validate desktop-file-validate "$entry" || failed=1
    done
    judge appstreamcli appstreamcli validate --no-net --no-color "$root/packaging/desktop/tavik-library-test.metainfo.xml" || failed=1
    judge mandoc mandoc -T lint -W warning "$root"/packaging/man/*.1 || failed=1
    return "$failed"
}

judge_packages() {
    judge lintian lintian --allow-root --color never --tag-display-limit 0 "$@"
}
