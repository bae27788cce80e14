# Sourced by the test wrappers that need a real X server: start_x_server starts an Xvfb on a
# free display, exports DISPLAY and QT_QPA_PLATFORM=xcb, and leaves its process ID in X_SERVER.
# The caller's EXIT trap should kill it.
start_x_server() {
    local display_file
    display_file=$(mktemp)
    # Xvfb picks a free display number and writes it to descriptor 5. Without -noreset the server
    # resets whenever its last client leaves, dropping any client connecting at that moment: a
    # helper that opens the display briefly (the accessibility bus launcher does) would do that.
    Xvfb -displayfd 5 -screen 0 1280x1024x24 -nolisten tcp -noreset 5>"$display_file" 2>"$display_file.log" &
    X_SERVER=$!
    for _ in $(seq 100); do
        [ -s "$display_file" ] && break
        sleep 0.1
    done
    if [ ! -s "$display_file" ]; then
        echo "Xvfb did not start:" >&2
        cat "$display_file.log" >&2
        rm -f "$display_file" "$display_file.log"
        return 1
    fi
    export DISPLAY=":$(cat "$display_file")" QT_QPA_PLATFORM=xcb
    rm -f "$display_file" "$display_file.log"
}
