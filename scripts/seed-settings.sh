# Writes the settings file for a first start. To be sourced behind setup.sh.

# A native path in the form that the settings have.
windows_path() { printf 'Z:%s' "$1" | tr / '\\'; }

tool_path() {
    local found
    found=$(command -v "$1" 2>/dev/null) && windows_path "$found"
    return 0
}

# The samples are copied: opening a project may add files to its folder.
seed_settings() {
    local settings="${XDG_CONFIG_HOME:-$HOME/.config}/quorrel"
    local samples="${XDG_DATA_HOME:-$HOME/.local/share}/quorrel/samples"
    local file="$settings/qrrl_hj.ini"
    [ -e "$file" ] && return
    mkdir -p "$settings" "$samples"
    [ -e "$samples/htmlhelp" ] || cp -R "$root/samples/htmlhelp" "$samples/"
    [ -e "$samples/javahelp" ] || cp -R "$root/samples/javahelp" "$samples/"
    local html java
    html="$(windows_path "$samples/htmlhelp/sourdough.hhp")|The Sourdough Book"
    java="$(windows_path "$samples/javahelp/sourdough.hs")|The Sourdough Book"
    {
        printf '[Locations]\r\nmain dir=%s\r\n' "$(windows_path "$root/out/release/share/")"
        printf '[JavaHelp]\r\nviewer=%s\r\nindexer=%s\r\njar=%s\r\n' \
            "$(tool_path hsviewer)" "$(tool_path jhindexer)" "$(tool_path jar)"
        printf '[HTML Help]\r\nhhc=%s\r\n' "$(tool_path chmcmd)"
        printf '[Recent HTML Projects]\r\n0=%s\r\n' "$html"
        printf '[Recent Projects]\r\n0=%s\r\n1=%s (HTML Help)\r\n' "$java" "$html"
    } >"$file.new"
    mv "$file.new" "$file"
}
