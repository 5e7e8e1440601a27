#include "tools/lspping/capture/HexReader.h"

#include <utility>

#include "tools/lspping/io/Diagnostics.h"

namespace LspPingTool {

namespace {

constexpr std::size_t bufferSize = 65536;
constexpr int endOfInput = -1;

constexpr bool endsLine( int c ) {
   return c == '\n' || c == endOfInput;
}

std::string foreignText( int c ) {
   if( c > ' ' && c < 0x7f )
      return std::string( "'" ) + static_cast< char >( c ) + "' is no hexadecimal digit";
   return "a byte of value " + std::to_string( c ) + " is no hexadecimal digit";
}

} // namespace

HexReader::HexReader( std::string const & path, BeforeWait beforeWait )
   : input_( path, std::move( beforeWait ) ),
     buffer_( std::make_unique< char[] >( bufferSize ) ) {}

int HexReader::character() {
   if( position_ == filled_ ) {
      ssize_t const count = input_.read( buffer_.get(), bufferSize );
      position_ = 0;
      filled_ = count > 0 ? static_cast< std::size_t >( count ) : 0;
      if( filled_ == 0 ) {
         isEnded_ = true;
         return endOfInput;
      }
   }
   return static_cast< unsigned char >( buffer_[position_++] );
}

void HexReader::skipLine( int last ) {
   while( !endsLine( last ) )
      last = character();
}

EchoSource::Step HexReader::failed( std::string text ) {
   error_ = {};
   error_.status = exitMalformedInput;
   error_.file = input_.name();
   error_.text = std::move( text );
   error_.packet = ++messages_;
   error_.line = lines_;
   error_.column = hex_.column();
   return Step::error;
}

EchoSource::Step HexReader::nextLine() {
   using Fault = HexBytes::Fault;
   while( !isEnded_ ) {
      hex_.clear();
      ++lines_;
      Fault fault = Fault::none;
      int c = character();
      for( ; !endsLine( c ) && c != '#'; c = character() ) {
         fault = hex_.take( static_cast< char >( c ) );
         if( fault != Fault::none )
            break;
      }
      if( fault == Fault::none )
         fault = hex_.end();
      skipLine( c );
      switch( fault ) {
      case Fault::half:
         return failed( "a byte needs two hexadecimal digits" );
      case Fault::foreign:
         return failed( foreignText( c ) );
      case Fault::tooMany:
         return failed( "a message of more than " + std::to_string( maximumLength ) + " bytes" );
      case Fault::none:
         break;
      }
      if( !hex_.bytes().empty() ) {
         packet_.number = ++messages_;
         packet_.payload = hex_.bytes();
         packet_.claimedLength = hex_.bytes().size();
         return Step::message;
      }
   }
   return Step::end;
}

EchoSource::Step HexReader::next() {
   Step const step = nextLine();
   // A failure leaves half a line, of which nothing should be said.
   if( input_.failure() == 0 || isFailureTold_ )
      return step;
   isFailureTold_ = true;
   error_ = {};
   error_.file = input_.name();
   error_.text = systemText( input_.failure() );
   return Step::error;
}

} // namespace LspPingTool
