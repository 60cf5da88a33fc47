# Where an install puts things, decided before any target exists.
# On Debian and its derivatives the libraries go to the multiarch folder under every prefix, not
# only under /usr, so that an install into /usr/local or a package built from any configuration
# puts them where the dynamic loader and CMake look. An explicit CMAKE_INSTALL_LIBDIR wins.
if(NOT DEFINED CMAKE_INSTALL_LIBDIR AND CMAKE_LIBRARY_ARCHITECTURE AND EXISTS /etc/debian_version)
  set(CMAKE_INSTALL_LIBDIR "lib/${CMAKE_LIBRARY_ARCHITECTURE}" CACHE PATH
      "Object code libraries (lib/${CMAKE_LIBRARY_ARCHITECTURE})")
endif()
include(GNUInstallDirs)

# Every header goes below one folder of its own.
set(VORDPM_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/VorDPM)

# The programs find the libraries relative to themselves, so that an install under any prefix
# (or an unpacked package) runs as it is; installs into /usr drop these paths again (see
# VorDPMInstall.cmake), as the system's loader finds the libraries there.
file(RELATIVE_PATH VORDPM_LIBDIR_FROM_BINDIR "/prefix/${CMAKE_INSTALL_BINDIR}"
     "/prefix/${CMAKE_INSTALL_LIBDIR}")
set(VORDPM_PROGRAM_RPATH "$ORIGIN/${VORDPM_LIBDIR_FROM_BINDIR}")

# The child process in which preview scripts run is a program of its own that users do not
# start: it goes to the folder of such programs, where the library finds it from the program's
# folder.
set(VORDPM_PREVIEW_PROGRAM_DIR ${CMAKE_INSTALL_LIBEXECDIR}/vordpm)
file(RELATIVE_PATH VORDPM_PREVIEW_PROGRAM_FROM_BINDIR "/prefix/${CMAKE_INSTALL_BINDIR}"
     "/prefix/${VORDPM_PREVIEW_PROGRAM_DIR}/vordpm-preview")
