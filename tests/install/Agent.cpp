#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"

#include <cstdio>
#include <new>

#ifndef LSPPING_VENDOR_IANA
#error "the package does not say which vendor's private TLV the library understands"
#endif

int main() {
   alignas( LspPing::LspPingHdr ) unsigned char bytes[sizeof( LspPing::LspPingHdr )] = {};
   auto * header = new( bytes ) LspPing::LspPingHdr;
   header->versionIs( 1 );
   header->messageTypeIs( 2 );
   header->senderHandleIs( 0x01020304 );
   bool const laid = bytes[1] == 1 && bytes[4] == 2 && bytes[8] == 1 && bytes[11] == 4;
   std::printf( "%s\n", header->stringValue().c_str() );
   return laid && header->valid() ? 0 : 1;
}
