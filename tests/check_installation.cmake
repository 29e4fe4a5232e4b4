# cmake -DBUILD=build/release -DNOTEBOOK=course/notebook.txt -P tests/check_installation.cmake
#
# Installs into a folder of its own, reports from there, and compiles the notebook with what was
# installed, which looks at every data set and picture.
set(ENV{DESTDIR} "${BUILD}/installation-test")
file(REMOVE_RECURSE "$ENV{DESTDIR}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix /any/where
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
set(installed "$ENV{DESTDIR}/any/where")
set(course "${installed}/share/tolmer")
set(compiled "${course}/tolmod/compiled.nbo")  # beside the pictures
foreach(command IN ITEMS "bin/tolreport;--default" "libexec/tolmer/tolimport;--version"
    "bin/nbocompile;${NOTEBOOK};${compiled};--root;${course}")
  list(POP_FRONT command program)
  execute_process(COMMAND "${installed}/${program}" ${command} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${compiled}" "${course}/tolmod/tolmod.nbo"
  COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE "$ENV{DESTDIR}")
