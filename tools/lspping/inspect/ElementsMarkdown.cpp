#include "MplsUtils/LspPing/message/LspPingElements.h"
#include "MplsUtils/LspPing/message/LspPingWords.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"
#include "tools/lspping/inspect/Registry.h"

#include <algorithm>

namespace LspPingTool {

namespace {

using LspPing::LspPingContext;
using Row = LspPing::LspPingElementRow;

std::string withoutNamespace( std::string_view name ) {
   return std::string( name.substr( name.rfind( ':' ) + 1 ) );
}

std::string length( LspPing::LspPingElement const & facts ) {
   std::string text = std::to_string( facts.leastLength );
   if( !facts.hasFixedLength )
      return "from " + text;
   if( facts.otherLength != 0 )
      text += " or " + std::to_string( facts.otherLength );
   return text;
}

std::string codes( Row const & row ) {
   std::string text = std::to_string( row.code() );
   if( row.facts.isCodeRange )
      text += " to " + std::to_string( row.facts.codes[1] );
   return text;
}

// What else stands in the element.
std::string content( Row const & row ) {
   if( row.facts.isContainer() )
      return withoutNamespace( lspPingContextName( row.facts.content() ) );
   return row.facts.behind == LspPing::LspPingBehind::nothing
             ? ""
             : std::string( lspPingBehindName( row.facts.behind ) );
}

void appendContainers( std::string & out, LspPingContext context ) {
   std::vector< std::string > names;
   if( context == LspPingContext::message )
      names.emplace_back( "messages" );
   for( Row const & row : LspPing::lspPingElements() ) {
      if( !row.facts.isContainer() || row.facts.content() != context )
         continue;
      std::string name = lspPingContextName( row.facts.context ) == "message" ? "TLV " : "sub-TLV ";
      name += codes( row ) + " " + std::string( lspPingCodeName( row.facts.context, row.code() ) );
      if( std::find( names.begin(), names.end(), name ) == names.end() )
         names.push_back( std::move( name ) );
   }
   std::string_view separator = "\nThey stand in ";
   for( std::string const & name : names ) {
      out.append( separator ).append( name );
      separator = ",\n";
   }
   out += ".\n";
}

void appendContext( std::string & out, std::span< Row const > rows ) {
   LspPingContext const context = rows.front().facts.context;
   out += "\n## " + withoutNamespace( lspPingContextName( context ) ) + "\n";
   appendContainers( out, context );
   out += "\n| Code | Enumerator | Name | Length | Source | View | What follows |\n"
          "|---|---|---|---|---|---|---|\n";
   for( Row const & row : rows ) {
      // A row that only says that none of the others fits.
      if( row.facts.chooser != 0 && !row.isDescribed() )
         continue;
      out += "| " + codes( row ) + " | `" + std::string( lspPingCodeName( context, row.code() ) ) +
             "` | " + std::string( lspPingElementWords( context, row.code() ) ) + " | " +
             length( row.facts ) + " | " + std::string( row.facts.rfc ) + " | ";
      if( Kiv::TypeRef const type( row.type ); type )
         out += "`" + withoutNamespace( type.name() ) + "`";
      out += " | " + content( row ) + " |\n";
   }
}

} // namespace

std::string elementsMarkdown() {
   std::string out =
      "# Elements\n\n"
      "What `lspping types --elements` prints: every TLV, sub-TLV, FEC and opaque value that is\n"
      "known, from the facts beside the views. An element whose bytes choose between several "
      "forms\n"
      "has a line for each view. Lengths are those of the value in bytes, without padding.\n";
   std::span< Row const > rows = LspPing::lspPingElements();
   while( !rows.empty() ) {
      LspPingContext const context = rows.front().facts.context;
      auto const end = std::find_if( rows.begin(), rows.end(), [=]( Row const & row ) {
         return row.facts.context != context;
      } );
      auto const count = static_cast< std::size_t >( end - rows.begin() );
      appendContext( out, rows.first( count ) );
      rows = rows.subspan( count );
   }
   return out;
}

} // namespace LspPingTool
