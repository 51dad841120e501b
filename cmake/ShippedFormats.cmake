# Writes the files of formats/ into a source file, so that a store can be made
# wherever the program runs: cmake -D OUT=... -D FOLDER=... -P ShippedFormats.cmake
file(GLOB files ${FOLDER}/*.format)
list(SORT files)
set(rows "")
foreach(file IN LISTS files)
  get_filename_component(name ${file} NAME)
  file(READ ${file} text)
  string(APPEND rows "    {\"${name}\", R\"~~~(${text})~~~\"},\n")
endforeach()
file(WRITE ${OUT} "// Made from the files of formats/ by cmake/ShippedFormats.cmake.
#include \"staging/shipped_formats.h\"

namespace vorlane::staging {

std::span<const ShippedFormat> ShippedFormats() {
  static constexpr ShippedFormat kFormats[] = {
${rows}  };
  return kFormats;
}

}  // namespace vorlane::staging
")
