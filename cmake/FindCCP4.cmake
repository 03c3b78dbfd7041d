# libccp4 (Debian's libccp4-dev): the field's C library for CCP4/MRC maps
# (cmaplib) and MTZ reflection files (cmtzlib). pkg-config does not know it,
# so the headers and the library are looked for by name.
#
# Gives the imported target CCP4::ccp4c.
find_path(CCP4_INCLUDE_DIR cmaplib.h PATH_SUFFIXES ccp4)
find_library(CCP4C_LIBRARY ccp4c)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CCP4 REQUIRED_VARS CCP4C_LIBRARY CCP4_INCLUDE_DIR)
if(CCP4_FOUND AND NOT TARGET CCP4::ccp4c)
  add_library(CCP4::ccp4c UNKNOWN IMPORTED)
  # An imported target's headers are system headers: the library's own code
  # is not held to this project's warnings.
  set_target_properties(CCP4::ccp4c PROPERTIES
    IMPORTED_LOCATION ${CCP4C_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${CCP4_INCLUDE_DIR})
endif()
