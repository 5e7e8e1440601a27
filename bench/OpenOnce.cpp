// Opens the shared object that is named and prints how many nanoseconds it took. A process of its
// own for every measurement: what was opened once stays mapped.
#include <dlfcn.h>

#include <chrono>
#include <cstdio>

int main( int argc, char ** argv ) {
   if( argc != 2 ) {
      std::fprintf( stderr, "usage: openOnce SHARED-OBJECT\n" );
      return 2;
   }
   auto const start = std::chrono::steady_clock::now();
   void * const opened = dlopen( argv[1], RTLD_NOW | RTLD_LOCAL );
   auto const end = std::chrono::steady_clock::now();
   if( opened == nullptr ) {
      std::fprintf( stderr, "openOnce: %s\n", dlerror() );
      return 1;
   }
   std::printf( "%lld\n", static_cast< long long >( ( end - start ).count() ) );
   return 0;
}
