# What others have made and what of it is in the packages: as a text for users (notices) and for
# programs (spdx). Both go by the map that the linker has written and by the packages that this
# system's compilers come from. Sourced after common.sh; the product must be built.

NOTICES_MAP=$AMBRIO_BUILD/cmake/win64/Ambrio.map

# Whether the linker has taken anything from a library.
is_linked() { grep -qE "/$1\.a\(" "$NOTICES_MAP"; }

# The package that a library comes from, and the version of a package.
package_of() { dpkg -S "$(realpath "$(x86_64-w64-mingw32-g++-posix -print-file-name="$1")")" | cut -d: -f1; }
version_of() { dpkg-query -W -f='${Version}' "$1"; }
copyright_of() { cat "/usr/share/doc/$1/copyright"; }

# component NAME SPDX-LICENSE PACKAGE: one line for each that is in the packages.
components() {
    if is_linked 'libstdc\+\+'; then
        echo "libstdc++|GPL-3.0-or-later WITH GCC-exception-3.1|$(package_of libstdc++.a)|program"
    fi
    if is_linked libgcc || is_linked libgcc_eh; then
        echo "libgcc|GPL-3.0-or-later WITH GCC-exception-3.1|$(package_of libgcc.a)|program"
    fi
    if is_linked libmingw32 || is_linked libmingwex; then
        echo "mingw-w64 runtime|ZPL-2.1|$(package_of libmingw32.a)|program"
    fi
    if is_linked 'libpthread' || is_linked 'libwinpthread'; then
        echo "winpthreads|MIT AND BSD-3-Clause|$(package_of libwinpthread.a)|program"
    fi
    echo "NSIS|Zlib|nsis-common|installer"
    echo "LZMA decoder of NSIS|CPL-1.0 WITH LZMA-exception|nsis-common|installer"
}

# paragraphs PATTERN: from a package's copyright file on standard input, those about files that match,
# and the licences that they name.
paragraphs() {
    awk -v pattern="$1" 'BEGIN { RS = ""; FS = "\n" }
        /^Files:/ && $0 ~ pattern {
            print $0 "\n"
            for (i = 1; i <= NF; i++) if ($i ~ /^License: /) {
                count = split(substr($i, 10), names, / and | or /)
                for (j = 1; j <= count; j++) wanted[names[j]] = 1
            }
        }
        /^License:/ && (substr($1, 10) in wanted) { print $0 "\n" }' |
        sed -e 's/^ \.$//' -e 's/^ //'
}

heading() {
    printf '%s\n%s %s\n%s\n\n' "$(printf '=%.0s' {1..80})" "$1" "$2" "$(printf '=%.0s' {1..80})"
}

notices() {
    local name licence package place
    cat <<END
What others have made that is part of $PRODUCT_NAME $PRODUCT_VERSION
$(components | awk -F'|' '{ printf "  %s, in the %s\n", $1, $4 }')

$PRODUCT_NAME itself is under the licence in LICENSE.txt.

END
    while IFS='|' read -r name licence package place; do
        heading "$name" "($(version_of "$package")), $licence"
        case $name in
            libstdc++)
                echo "Under the GNU General Public License, version 3 or later, with this exception:"
                echo
                awk '/^GCC RUNTIME LIBRARY EXCEPTION/ { inside = 1 }
                    inside
                    inside && /requirements of the license of GCC\./ { exit }' \
                    "/usr/share/doc/$package/copyright"
                echo
                ;;
            libgcc) printf 'As libstdc++, with the same exception.\n\n' ;;
            "mingw-w64 runtime") copyright_of "$package" | paragraphs 'Files: \\*|mingw-w64-crt/' ;;
            winpthreads) copyright_of "$package" | paragraphs 'winpthreads/(\\*|include|src)' ;;
            NSIS) copyright_of "$package" | paragraphs 'Files: \\*' ;;
            *) copyright_of "$package" | paragraphs 'Source/7zip' ;;
        esac
    done < <(components)
}

# spdx FOLDER: about the packages that lie there with their checksums.
spdx() {
    local name licence package place sum file number=0
    cat <<END
{
  "spdxVersion": "SPDX-2.3",
  "dataLicense": "CC0-1.0",
  "SPDXID": "SPDXRef-DOCUMENT",
  "name": "$PRODUCT_NAME-$PRODUCT_VERSION",
  "documentNamespace": "urn:sha256:$(sha256sum <"$1/SHA256SUMS" | cut -d' ' -f1)",
  "creationInfo": {
    "created": "$(date -u -d "@$SOURCE_DATE_EPOCH" +%Y-%m-%dT%H:%M:%SZ)",
    "creators": ["Organization: $PRODUCT_PUBLISHER", "Tool: scripts/package"]
  },
  "packages": [
END
    while IFS='|' read -r name licence package place; do
        number=$((number + 1))
        cat <<END
    {
      "name": "$name",
      "SPDXID": "SPDXRef-Part-$number",
      "versionInfo": "$(version_of "$package")",
      "downloadLocation": "NOASSERTION",
      "filesAnalyzed": false,
      "licenseConcluded": "$licence",
      "licenseDeclared": "$licence",
      "copyrightText": "NOASSERTION",
      "comment": "From the package $package; in the $place."
    },
END
    done < <(components)
    cat <<END
    {
      "name": "$PRODUCT_NAME",
      "SPDXID": "SPDXRef-$PRODUCT_NAME",
      "versionInfo": "$PRODUCT_VERSION",
      "supplier": "Organization: $PRODUCT_PUBLISHER",
      "downloadLocation": "NOASSERTION",
      "filesAnalyzed": false,
      "licenseConcluded": "MIT",
      "licenseDeclared": "MIT",
      "copyrightText": "$PRODUCT_COPYRIGHT",
      "primaryPackagePurpose": "APPLICATION"
    }
  ],
  "files": [
END
    number=0
    while read -r sum file; do
        [ "$number" = 0 ] || echo ","
        number=$((number + 1))
        printf '    { "fileName": "./%s", "SPDXID": "SPDXRef-File-%s", "checksums": [{ "algorithm": "SHA256", "checksumValue": "%s" }] }' \
            "$file" "$number" "$sum"
    done <"$1/SHA256SUMS"
    printf '\n  ],\n  "relationships": [\n'
    # The installer is the first of the files.
    components | awk -F'|' -v product="$PRODUCT_NAME" '{
        printf "    { \"spdxElementId\": \"SPDXRef-%s\", \"relationshipType\": \"%s\", \"relatedSpdxElement\": \"SPDXRef-Part-%d\" },\n",
            ($4 == "program" ? product : "File-1"), ($4 == "program" ? "STATIC_LINK" : "CONTAINS"), NR }'
    for ((; number > 0; number--)); do
        printf '    { "spdxElementId": "SPDXRef-File-%s", "relationshipType": "CONTAINS", "relatedSpdxElement": "SPDXRef-%s" },\n' \
            "$number" "$PRODUCT_NAME"
    done
    cat <<END
    { "spdxElementId": "SPDXRef-DOCUMENT", "relationshipType": "DESCRIBES", "relatedSpdxElement": "SPDXRef-$PRODUCT_NAME" }
  ]
}
END
}
