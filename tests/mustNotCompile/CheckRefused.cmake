# Runs COMPILER over FILE and holds its verdict against the file's first line.

file( STRINGS ${FILE} expected LIMIT_COUNT 1 )
execute_process( COMMAND ${COMPILER} -std=c++20 -fsyntax-only -I${ROOT} ${FILE}
                 RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output )
if( expected STREQUAL "// accepted" )
   if( NOT result EQUAL 0 )
      message( FATAL_ERROR "${FILE} should compile:\n${output}" )
   endif()
elseif( expected MATCHES "^// refused: (.+)$" )
   if( result EQUAL 0 )
      message( FATAL_ERROR "${FILE} compiles" )
   endif()
   if( NOT output MATCHES "${CMAKE_MATCH_1}" )
      message( FATAL_ERROR "${FILE} is refused for another reason:\n${output}" )
   endif()
else()
   message( FATAL_ERROR "${FILE} does not begin with what is expected of it" )
endif()
