#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "tools/lspping/inspect/Answers.h"
#include "tools/lspping/inspect/Commands.h"

#include <algorithm>
#include <optional>

namespace LspPingTool {

namespace {

// Whether a value differs from the default one, by its own judgement where it has one.
std::optional< bool > isSet( Kiv::TypeRef type, void const * value ) {
   Kiv::Operations const & operations = type.operations();
   if( operations.isSet != nullptr )
      return operations.isSet( value );
   if( operations.equal == nullptr )
      return std::nullopt;
   Kiv::Instance const byDefault( type );
   return !operations.equal( value, byDefault.object() );
}

std::string answerValue( std::vector< std::string > const & arguments, bool json ) {
   if( arguments.empty() )
      throw UsageError( "value wants TYPE [TEXT] [NAME=VALUE]..." );
   Kiv::TypeRef const type = typeGiven( arguments[0] );
   if( type.kind() != Kiv::Kind::value && type.kind() != Kiv::Kind::enumeration )
      throw UsageError( std::string( type.name() ) + " is no value type" );

   // A value without attributes has nothing to write, so what follows can only be its text.
   bool const hasText =
      arguments.size() > 1 && ( type.attributes().empty() || !writeGiven( arguments[1] ) );
   std::vector< WriteGiven > const writes = writesGiven( arguments, hasText ? 2 : 1 );
   Kiv::Instance value( type );
   if( hasText )
      valueFromText( type, arguments[1], value.object(), std::string( type.name() ) );
   std::vector< WriteDone > const done = applyWrites( type, value.object(), writes );

   Orlo::String const text = KivOrlo::valueToStrep( type, value.object() );
   std::optional< bool > const set = isSet( type, value.object() );
   if( json )
      return jsonLine( [&]( JsonWriter & line ) {
                line.StartObject();
                writeKey( line, "type" );
                writeString( line, type.name() );
                writeKey( line, "text" );
                writeString( line, text );
                writeKey( line, "attributes" );
                writeAttributes( line, type, value.object() );
                writeKey( line, "isSet" );
                if( set )
                   line.Bool( *set );
                else
                   line.Null();
                // The form has no place for writes that were done; one that was refused is told.
                if( std::any_of( done.begin(), done.end(), []( WriteDone const & write ) {
                       return write.outcome != Kiv::Outcome::done;
                    } ) )
                   writeOutcomes( line, done );
                line.EndObject();
             } ) +
             '\n';
   // On a line of its own, whatever the value has in it.
   std::string answer = Kiv::printable( text ) + '\n';
   appendAttributes( answer, type, value.object() );
   appendOutcomes( answer, done );
   if( set )
      answer += *set ? "set\n" : "empty\n";
   return answer;
}

} // namespace

int runValue( ObjectOptions const & options, Output & output ) {
   return answerAll( options, output, answerValue );
}

} // namespace LspPingTool
