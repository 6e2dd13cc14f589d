# The installed package as an application sees it: installs the built
# library under a fresh prefix, builds a small program in Debug against it
# once through find_package(QVV7) and once through pkg-config, and checks
# that both read the demo project as the installed qvdoc (a release build)
# does.
#
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... [-DEXTRA_FLAGS=...] -P run.cmake
foreach(v BUILD_DIR SOURCE_DIR WORK_DIR)
  if(NOT ${v})
    message(FATAL_ERROR "run.cmake needs -D${v}=...")
  endif()
endforeach()

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
# A prefix that is not the configured one: the installed files must not
# depend on where they were meant to go.
set(prefix "${WORK_DIR}/elsewhere/prefix")
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

file(GLOB_RECURSE installed_lib "${prefix}/*/libQVV7.so")
if(NOT installed_lib)
  message(FATAL_ERROR "no libQVV7.so under ${prefix}")
endif()
get_filename_component(lib_dir "${installed_lib}" DIRECTORY)
# The installed qvdoc carries no search path of the build tree.
set(ENV{LD_LIBRARY_PATH} "${lib_dir}")

run("${prefix}/bin/qvdoc" demo --out "${WORK_DIR}/demo")
set(project "${WORK_DIR}/demo/demo.qvz")
run("${prefix}/bin/qvdoc" info "${project}")
string(REGEX MATCH "analyses:\n(.*)result folders:" _ "${out}")
set(expected "${CMAKE_MATCH_1}")
if(expected STREQUAL "")
  message(FATAL_ERROR "qvdoc info listed no analyses:\n${out}")
endif()

function(check_consumer exe how)
  run("${exe}" "${project}")
  string(FIND "${out}" "${expected}" at)
  if(at LESS 0)
    message(FATAL_ERROR "${how}: the program built against the installed package reads\n${out}\nwhere qvdoc reads\n${expected}")
  endif()
  message(STATUS "${how}: ${out}")
endfunction()

# 1. find_package(QVV7), Debug (NDEBUG not defined).
set(cmake_build "${WORK_DIR}/cmake-build")
run(${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${cmake_build}" -DCMAKE_BUILD_TYPE=Debug
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_FLAGS=${EXTRA_FLAGS}"
    "-DCMAKE_EXE_LINKER_FLAGS=${EXTRA_FLAGS}" "-DCMAKE_BUILD_RPATH=${lib_dir}")
run(${CMAKE_COMMAND} --build "${cmake_build}")
check_consumer("${cmake_build}/consumer" "find_package")

# 2. pkg-config, with only the installed .pc file to go by.
find_program(PKG_CONFIG pkg-config REQUIRED)
file(GLOB_RECURSE pc_files "${prefix}/*/qvv7.pc")
list(GET pc_files 0 pc_file)
get_filename_component(pc_dir "${pc_file}" DIRECTORY)
set(ENV{PKG_CONFIG_PATH} "${pc_dir}")
run(${PKG_CONFIG} --cflags --libs qvv7)
string(STRIP "${out}" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${PKG_CONFIG} --variable=libdir qvv7)
string(STRIP "${out}" libdir)
file(REAL_PATH "${libdir}" libdir)
file(REAL_PATH "${lib_dir}" lib_real)
if(NOT libdir STREQUAL lib_real)
  message(FATAL_ERROR "qvv7.pc names the library folder ${libdir}; it was installed in ${lib_real}")
endif()
separate_arguments(extra UNIX_COMMAND "${EXTRA_FLAGS}")
run(c++ -g ${extra} "${SOURCE_DIR}/consumer.cpp" -o "${WORK_DIR}/consumer-pc" ${flags} "-Wl,-rpath,${libdir}")
check_consumer("${WORK_DIR}/consumer-pc" "pkg-config")
