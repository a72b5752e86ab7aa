# To be read by the scripts of this folder: a Windows of their own, gone when they end.
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
wineServer=$(command -v wineserver64 || echo /usr/lib/wine/wineserver64)
WINEPREFIX=$(mktemp -d)
export WINEPREFIX WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
# The server writes into its folder until it goes, shortly after the last program.
endWine() {
    "$wineServer" -w || true
    rm -rf "$WINEPREFIX"
}
trap endWine EXIT
