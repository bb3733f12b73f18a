# The build's options, all of them. Tests, tools and benchmarks are for this project alone: a project that adds this folder
# gets the libraries and nothing else.
option(WRL_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(WRL_BUILD_TOOLS "Build the embedded host and the wrl command" ${PROJECT_IS_TOP_LEVEL})
option(WRL_BUILD_BENCH "Build the benchmarks" OFF)
option(WRL_BUILD_FUZZ "Build the fuzz targets (needs clang)" OFF)
option(WRL_SANITIZE "Compile with the address and undefined-behaviour sanitizers" OFF)
option(WRL_INSTALL "Install the module, the host, the command, headers and package files" ${PROJECT_IS_TOP_LEVEL})
set(WRL_HOST_INCLUDE_DIR "" CACHE PATH "Headers of another host that the module is compiled against, instead of host/")
set(WRL_PAGES AUTO CACHE STRING "Write HTML pages, whose viewer npm fetches: ON, OFF, or AUTO, where it can be fetched")
set_property(CACHE WRL_PAGES PROPERTY STRINGS AUTO ON OFF)
option(WRL_WERROR "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})

if((WRL_BUILD_TESTS OR WRL_BUILD_BENCH) AND NOT WRL_BUILD_TOOLS)
  message(FATAL_ERROR "Tests and benchmarks run the module inside the embedded host: they need WRL_BUILD_TOOLS.")
endif()
if(WRL_HOST_INCLUDE_DIR AND WRL_BUILD_TOOLS)
  message(FATAL_ERROR "The embedded host stands behind the declarations in host/: WRL_HOST_INCLUDE_DIR wants WRL_BUILD_TOOLS off.")
endif()
