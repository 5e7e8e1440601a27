#include "tools/lspping/io/HexBytes.h"

#include "MplsUtils/LspPing/platform/Orlo/Digits.h"

#include <string_view>

namespace LspPingTool {

bool HexBytes::isSeparator( char character ) noexcept {
   return std::string_view( " \t\r\n\v\f:-" ).find( character ) != std::string_view::npos;
}

HexBytes::Fault HexBytes::take( char character ) {
   ++taken_;
   U8 const value = Orlo::hexDigitValue( character );
   if( state_ == State::digit ) {
      if( value < 16 ) {
         if( bytes_.size() == most_ )
            return faultAt( first_, Fault::tooMany );
         bytes_.push_back( static_cast< U8 >( high_ << 4 | value ) );
         state_ = State::between;
         isPrefixAllowed_ = false;
         return Fault::none;
      }
      if( isPrefixAllowed_ && high_ == 0 && ( character == 'x' || character == 'X' ) ) {
         state_ = State::prefix;
         return Fault::none;
      }
   } else if( value < 16 ) {
      isPrefixAllowed_ = state_ == State::between && isPrefixAllowed_;
      state_ = State::digit;
      high_ = value;
      first_ = taken_;
      return Fault::none;
   } else if( state_ == State::between && isSeparator( character ) ) {
      isPrefixAllowed_ = true;
      return Fault::none;
   } else {
      first_ = taken_;
   }
   return isSeparator( character ) ? faultAt( first_, Fault::half )
                                   : faultAt( taken_, Fault::foreign );
}

HexBytes::Fault HexBytes::end() noexcept {
   if( state_ == State::between )
      return Fault::none;
   return faultAt( state_ == State::prefix ? taken_ + 1 : first_, Fault::half );
}

void HexBytes::clear() noexcept {
   bytes_.clear();
   state_ = State::between;
   isPrefixAllowed_ = true;
   taken_ = 0;
}

HexBytes::Fault HexBytes::faultAt( U64 column, Fault fault ) noexcept {
   column_ = column;
   return fault;
}

} // namespace LspPingTool
