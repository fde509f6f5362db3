# Writes OUTPUT, the source of ShippedCatalogueFiles(): every one of FILES under its name relative to FOLDER.
# A script: cmake -DFOLDER=... -DFILES=... -DOUTPUT=... -P EmbedTexts.cmake

list(SORT FILES)
set(entries "")
foreach(file IN LISTS FILES)
    file(RELATIVE_PATH name "${FOLDER}" "${file}")
    file(READ "${file}" content)
    string(APPEND entries "    {\"${name}\", R\"text(${content})text\"},\n")
endforeach()
file(WRITE "${OUTPUT}" "#include \"catalogue/shipped_catalogue.h\"

namespace commtest {

namespace {

constexpr CatalogueFile kFiles[] = {
${entries}};

}  // namespace

std::span<const CatalogueFile> ShippedCatalogueFiles() { return kFiles; }

}  // namespace commtest
")
