#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"

// A tool that shows whatever the libraries it is linked with register, and includes none of theirs.
int main() {
   Kiv::TypeRef const type = Kiv::typeNamed( "LspPing::LspPingHdr" );
   if( !type )
      return 1;
   Kiv::Instance const header( type );
   return Kiv::read< U32 >( type, header.object(), "senderHandle" ) == 0 ? 0 : 1;
}
