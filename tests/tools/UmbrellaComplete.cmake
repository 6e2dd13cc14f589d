# The umbrella header V7Doc/QVV7.h must name every public header of the
# document library: an application that includes it may use any of them.
# Run with -DSOURCE_DIR=<repository root>.
file(READ "${SOURCE_DIR}/V7Doc/QVV7.h" umbrella)
file(GLOB_RECURSE headers RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/V7Doc/*/*.h")
set(missing "")
foreach(h IN LISTS headers)
  string(FIND "${umbrella}" "#include \"${h}\"" at)
  if(at EQUAL -1)
    list(APPEND missing "${h}")
  endif()
endforeach()
if(missing)
  list(JOIN missing "\n  " text)
  message(FATAL_ERROR "V7Doc/QVV7.h does not include:\n  ${text}")
endif()
