# What every target of the project is compiled and linked with.

set( CMAKE_CXX_STANDARD 20 )
set( CMAKE_CXX_STANDARD_REQUIRED ON )
set( CMAKE_CXX_EXTENSIONS OFF )
set( CMAKE_CXX_VISIBILITY_PRESET hidden )
set( CMAKE_VISIBILITY_INLINES_HIDDEN ON )
set( CMAKE_POSITION_INDEPENDENT_CODE ON )
if( NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES )
   set( CMAKE_BUILD_TYPE Release )
endif()

include( GNUInstallDirs )

add_library( LspPingWarnings INTERFACE )
target_compile_options( LspPingWarnings INTERFACE
   -Wall -Wextra -Wpedantic -Wconversion -Wshadow
   -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= $<$<BOOL:${LSPPING_WERROR}>:-Werror> )

# g++ 12 is wrong about `"text" + std::string` at -O3: it sees overlapping copies.
target_compile_options( LspPingWarnings INTERFACE
   $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict> )

# The tool reads hostile bytes, and whatever it is linked with reads them too: every target is
# hardened. Together that takes 0.6 to 2.4 % more instructions of `lspping decode`, of which
# control-flow protection is 0.9 % at the most.
include( CheckCXXCompilerFlag )
check_cxx_compiler_flag( -fstack-clash-protection LSPPING_HAS_STACK_CLASH_PROTECTION )
check_cxx_compiler_flag( -fcf-protection LSPPING_HAS_CF_PROTECTION ) # x86 only
include( CheckPIESupported )
check_pie_supported( LANGUAGES CXX )
add_compile_options(
   -fstack-protector-strong
   $<$<BOOL:${LSPPING_HAS_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>
   $<$<BOOL:${LSPPING_HAS_CF_PROTECTION}>:-fcf-protection> )
if( LSPPING_SANITIZE STREQUAL "" )
   add_compile_options( $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
                        $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2> )
endif()
add_link_options( LINKER:-z,relro,-z,now )

# The shared objects themselves: quick to load, nothing constructed at load.
add_library( LspPingSharedObject INTERFACE )
target_compile_options( LspPingSharedObject INTERFACE
   $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
   $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition> # our own functions are called, not looked up
   $<$<CXX_COMPILER_ID:Clang>:-Werror=global-constructors> )
if( LSPPING_SANITIZE STREQUAL "" )
   target_link_options( LspPingSharedObject INTERFACE LINKER:-z,defs )
endif()
# Types stay registered while the process runs, so a library that was loaded is never unmapped.
target_link_options( LspPingSharedObject INTERFACE
   LINKER:-z,nodelete LINKER:-z,pack-relative-relocs LINKER:--as-needed
   LINKER:-Bsymbolic-functions
   LINKER:--version-script=${CMAKE_CURRENT_LIST_DIR}/foreignSymbols.map )

if( NOT LSPPING_SANITIZE STREQUAL "" )
   add_compile_options( -fsanitize=${LSPPING_SANITIZE} -fno-omit-frame-pointer
                        -fno-sanitize-recover=all )
   add_link_options( -fsanitize=${LSPPING_SANITIZE} )
endif()
if( LSPPING_BUILD_FUZZ )
   # The fuzzer is led by what the library's code reaches, too.
   add_compile_options( -fsanitize=fuzzer-no-link )
   add_link_options( -fsanitize=fuzzer-no-link )
endif()
