# SPDX-License-Identifier: MIT
# Run by CPack before it packs: adds Debian's changelog, with the maintainer who Maintainer.cmake has found.
file(READ "${CPACK_MURMELO_CHANGELOG}" text)
string(REPLACE "@MAINTAINER@" "${CPACK_PACKAGE_CONTACT}" text "${text}")
set(papers "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/${CPACK_MURMELO_PAPERS}")
file(WRITE "${papers}/changelog.Debian" "${text}")
# Without name and time, so that the same source always gives the same bytes.
execute_process(COMMAND gzip -9nf "${papers}/changelog.Debian" COMMAND_ERROR_IS_FATAL ANY)
file(CHMOD "${papers}/changelog.Debian.gz" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
