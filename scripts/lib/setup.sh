# Makes the installer. Sourced after common.sh, when product.sh has been read.

# make_setup FILE CONTENT VERSION: from a folder that holds what is installed, win32/ and win64/ in
# it. AMBRIO_SIGN is the command that signs, if there is one.
make_setup() {
    local content=$2
    # It reads its arguments by the locale, which has to know the copyright sign.
    LC_ALL=C.UTF-8 makensis -V2 -WX -NOCONFIG "-DNAME=$PRODUCT_NAME" "-DVERSION=$3" \
        "-DPUBLISHER=$PRODUCT_PUBLISHER" "-DCOPYRIGHT=$PRODUCT_COPYRIGHT" \
        "-DDESCRIPTION=$PRODUCT_DESCRIPTION" "-DCONTENT=$content" \
        "-DKILOBYTES_32=$(kilobytes "$content" win32)" "-DKILOBYTES_64=$(kilobytes "$content" win64)" \
        ${AMBRIO_SIGN:+"-DSIGN=$AMBRIO_SIGN"} "-DOUTPUT=$1" \
        "$AMBRIO_ROOT/setup/Ambrio.nsi"
}
kilobytes() { du -ck --apparent-size "$1/$2"/* "$1"/*.txt | tail -n 1 | cut -f 1; }
