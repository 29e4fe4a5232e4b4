# Before the package is closed: what Debian wants otherwise than an installation has it.
set(share "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share")
set(doc "${share}/doc/tolmer")

execute_process(COMMAND "${CPACK_TOLMER_PACKAGING}/debian-changelog" "${doc}/CHANGELOG.md"
    "${CPACK_DEBIAN_PACKAGE_MAINTAINER}"
  OUTPUT_FILE "${doc}/changelog" COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE "${doc}/CHANGELOG.md")
file(GLOB manuals "${share}/man/man1/*.1")
execute_process(COMMAND gzip --best --no-name ${manuals} "${doc}/changelog"
  COMMAND_ERROR_IS_FATAL ANY)

set(readable OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(CHMOD "${doc}/changelog.gz" PERMISSIONS ${readable})
file(COPY "${CPACK_TOLMER_COPYRIGHT}" DESTINATION "${doc}" FILE_PERMISSIONS ${readable})
file(COPY "${CPACK_TOLMER_PACKAGING}/lintian-overrides"
  DESTINATION "${share}/lintian/overrides" FILE_PERMISSIONS ${readable})
file(RENAME "${share}/lintian/overrides/lintian-overrides" "${share}/lintian/overrides/tolmer")
foreach(folder share/lintian share/lintian/overrides)
  file(CHMOD "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/${folder}"
    PERMISSIONS ${readable} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)
endforeach()
