# SPDX-License-Identifier: MIT
# Run by CPack before it packs: removes packages of other versions, so that murmelo_*.deb names only the new one.
file(GLOB packages "${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_NAME}_*.deb")
file(REMOVE ${packages})
