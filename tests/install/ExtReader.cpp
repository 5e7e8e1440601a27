#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"

// The same of the library with the newer elements.
int main() {
   Kiv::TypeRef const type = Kiv::typeNamed( "LspPing::LspPingBfdDiscriminatorTlv" );
   if( !type )
      return 1;
   Kiv::Instance const discriminator( type );
   return Kiv::read< U32 >( type, discriminator.object(), "discriminator" ) == 0 ? 0 : 1;
}
