#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireGenId.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

#include <string_view>

namespace Pseudowire {

namespace {

PseudowireAttachmentIdentifier readNamed( Kiv::CharRange & text, std::string_view name ) {
   text.skip();
   Kiv::CharRange ahead{ text };
   if( ahead.word() != name )
      text.fail( "", name );
   text = ahead;
   PseudowireAttachmentIdentifier id;
   sequenceToValue( text, &id );
   return id;
}

} // namespace

Orlo::String PseudowireGenId::stringValue() const {
   return Kiv::_fmt( "%s", *this );
}

void appendText( Orlo::StringBuilder & out, PseudowireGenId const & id ) noexcept {
   out.append( "agi " );
   appendText( out, id.agi() );
   out.append( " saii " );
   appendText( out, id.saii() );
   out.append( " taii " );
   appendText( out, id.taii() );
}

void sequenceToValue( Kiv::CharRange & text, PseudowireGenId * id ) {
   PseudowireAttachmentIdentifier const agi = readNamed( text, "agi" );
   PseudowireAttachmentIdentifier const saii = readNamed( text, "saii" );
   PseudowireAttachmentIdentifier const taii = readNamed( text, "taii" );
   *id = PseudowireGenId{ agi, saii, taii };
}

} // namespace Pseudowire
