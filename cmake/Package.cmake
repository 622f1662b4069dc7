# The Debian package: `cmake --build build --target package` (or `cpack -G DEB` in the build tree) writes
# tarn_<version>_<arch>.deb. Library dependencies come from dpkg-shlibdeps; what the programs use without
# linking it is named here: libpam is loaded at the first login, libnl-route-3 at the first read of a
# real host's network, PAM's common-* stacks come with libpam-runtime, and the simulated host's log viewer
# is less.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_PACKAGE_CONTACT "tarn maintainers <tarn@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "full-screen text console of a hypervisor host")
# The summary is the first line of the package's description, this text the rest.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "tarn runs on a virtual terminal of the host and shows its identity and
management addresses. After a PAM login it configures the administrator
password, lockdown mode and the management network, and shuts down or
restarts the host.

The package includes simhost, a simulated host with its own tools, PAM
module and log files, against which the console runs by default.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libpam0g, libnl-3-200, libnl-route-3-200, libpam-runtime, less")
set(CPACK_STRIP_FILES ON)
# dpkg keeps an administrator's edits of the PAM service across upgrades.
file(WRITE ${TARN_STAGE}/conffiles "${CMAKE_INSTALL_FULL_SYSCONFDIR}/pam.d/tarn\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${TARN_STAGE}/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
