#include "tools/lspping/inspect/LineReader.h"

#include <algorithm>

namespace LspPingTool {

namespace {

constexpr std::size_t bufferSize = 65536;

} // namespace

LineReader::LineReader( InputFile & input )
   : input_( input ),
     buffer_( std::make_unique< char[] >( bufferSize ) ) {}

bool LineReader::fill() {
   if( unread_.empty() ) {
      ssize_t const count = input_.read( buffer_.get(), bufferSize );
      unread_ = { buffer_.get(), count > 0 ? static_cast< std::size_t >( count ) : 0 };
   }
   return !unread_.empty();
}

LineReader::Step LineReader::next() {
   line_.clear();
   if( !fill() )
      return Step::end;
   ++number_;
   bool isTooLong = false;
   bool isEnded = false;
   while( !isEnded && fill() ) {
      std::size_t const length = std::min( unread_.find( '\n' ), unread_.size() );
      isTooLong = isTooLong || line_.size() + length > maximumLength;
      if( !isTooLong )
         line_.append( unread_.substr( 0, length ) );
      isEnded = length < unread_.size();
      unread_.remove_prefix( length + ( isEnded ? 1 : 0 ) );
   }
   // Half a line says nothing.
   if( input_.failure() != 0 )
      return Step::end;
   return isTooLong ? Step::tooLong : Step::line;
}

std::string_view LineReader::line() const noexcept {
   std::string_view const all = line_;
   return all.substr( 0, all.find_last_not_of( '\r' ) + 1 );
}

} // namespace LspPingTool
