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

constexpr bool isSeparator( int c ) {
   return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f' || c == ':' || c == '-';
}

/// The value of a digit, or -1.
constexpr int digit( int c ) {
   if( c >= '0' && c <= '9' )
      return c - '0';
   int const lower = c | 0x20;
   return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
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

EchoSource::Step HexReader::failed( U64 column, std::string text ) {
   error_ = {};
   error_.kind = ReadErrorKind::malformedInput;
   error_.file = input_.name();
   error_.text = std::move( text );
   error_.packet = ++messages_;
   error_.line = lines_;
   error_.column = column;
   return Step::error;
}

EchoSource::Step HexReader::nextLine() {
   while( !isEnded_ ) {
      message_.clear();
      ++lines_;
      U64 column = 0;
      auto next = [&] {
         ++column;
         return character();
      };
      bool isPrefixAllowed = true;
      int c = next();
      for( ; !endsLine( c ) && c != '#'; c = next() ) {
         if( isSeparator( c ) ) {
            isPrefixAllowed = true;
            continue;
         }
         U64 first = column;
         int high = digit( c );
         if( high >= 0 ) {
            c = next();
            if( isPrefixAllowed && high == 0 && ( c == 'x' || c == 'X' ) ) {
               c = next();
               first = column;
               high = digit( c );
               c = high >= 0 ? next() : c;
            }
         }
         isPrefixAllowed = false;
         int const low = high >= 0 ? digit( c ) : -1;
         if( low < 0 ) {
            bool const isForeign = !endsLine( c ) && c != '#' && !isSeparator( c );
            skipLine( c );
            return isForeign ? failed( column, foreignText( c ) )
                             : failed( first, "a byte needs two hexadecimal digits" );
         }
         if( message_.size() == maximumLength ) {
            skipLine( c );
            return failed( first,
                           "a message of more than " + std::to_string( maximumLength ) + " bytes" );
         }
         message_.push_back( static_cast< U8 >( high << 4 | low ) );
      }
      skipLine( c );
      if( !message_.empty() ) {
         packet_.number = ++messages_;
         packet_.payload = message_;
         packet_.claimedLength = message_.size();
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
