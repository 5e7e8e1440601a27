#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"

#include <cstdio>
#include <new>

// An agent that calls no function of the library by itself: getters and setters are inline, and all
// else it reaches by name.
namespace {

bool readsByName() {
   alignas( LspPing::LspPingHdr ) unsigned char bytes[sizeof( LspPing::LspPingHdr )] = {};
   auto * header = new( bytes ) LspPing::LspPingHdr;
   header->versionIs( 1 );
   header->messageTypeIs( 2 );
   header->senderHandleIs( 0x01020304 );
   bool const laid = bytes[1] == 1 && bytes[4] == 2 && bytes[8] == 1 && bytes[11] == 4;
   return laid && Kiv::typeNamed( "LspPing::LspPingHdr" ) &&
          Kiv::read< U32 >( *header, "senderHandle" ) == 0x01020304 &&
          Kiv::read< bool >( *header, "valid" );
}

// The headers and the library know the same vendor, without a word of the agent's build.
bool agreesOnTheVendor() {
   LspPing::LspPingVeloraVendorPrivateTlv tlv;
   tlv.typeIs( 65261 );
   tlv.vendorIanaIs( VENDOR );
   Kiv::TypeRef const numbers = Kiv::typeNamed( "LspPing::LspPingVendorIana" );
   return tlv.valid() && numbers.enumerators()[0].value == VENDOR &&
          Kiv::read< Orlo::String >( tlv, "stringValue" ) == "VeloraVendorPrivate()";
}

} // namespace

int main() {
   bool const reads = readsByName();
   bool const agrees = reads && agreesOnTheVendor();
   std::printf( "reads by name: %d, agrees on the vendor: %d\n", reads, agrees );
   return reads && agrees ? 0 : 1;
}
