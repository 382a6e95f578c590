# What cpack makes of an installation: a Debian package and an archive.

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME zoerrlog)
set(CPACK_PACKAGE_VENDOR "zoerrlog maintainers")
set(CPACK_PACKAGE_CONTACT "zoerrlog maintainers <maintainers@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

# The libraries know the directory of their resources from the prefix they were configured for.
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# Readable by all and writable by the owner alone, whatever the umask of the build was.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

find_program(ZOERRLOG_DPKG_SHLIBDEPS dpkg-shlibdeps)
mark_as_advanced(ZOERRLOG_DPKG_SHLIBDEPS)
if(ZOERRLOG_DPKG_SHLIBDEPS)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # The libraries of the package need each other.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
else()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libstdc++6")
endif()

include(CPack)
