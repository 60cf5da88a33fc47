# Stages what the package tests check: an install of the build into a fresh prefix, and the
# Debian packages made by CPack. Run with -DBUILD_DIR=, -DSTAGE_DIR= and -DCPACK=.
file(REMOVE_RECURSE ${STAGE_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${STAGE_DIR}/prefix
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CPACK} -G DEB -B ${STAGE_DIR}/deb --config ${BUILD_DIR}/CPackConfig.cmake
  COMMAND_ERROR_IS_FATAL ANY)
# CPack's staging folders are not part of the result.
file(REMOVE_RECURSE ${STAGE_DIR}/deb/_CPack_Packages)
