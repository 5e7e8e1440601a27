#include "tests/TemporaryFolder.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

// What a message of twice the size costs: instructions, which are the same in every run.
namespace {

std::string const header = "0001000001020000000012340000000100000000000000000000000000000000";

std::string repeated( std::string const & text, std::size_t count ) {
   std::string result;
   for( ; count > 0; --count )
      result += text;
   return result;
}

std::string word( std::size_t value ) {
   char digits[5];
   (void)std::snprintf( digits, sizeof digits, "%04x", static_cast< unsigned >( value & 0xffff ) );
   return digits;
}

class Growth : public testing::Test {
 protected:
   // Of decoding a message of these TLVs, with the records; 0 where that cannot be told.
   double instructions( std::string const & tlvs ) const {
      std::string const input = folder_.file( "input", header + tlvs + "\n" );
      std::string const counted = folder_.file( "counted", "" );
      std::string const command =
         "valgrind --tool=callgrind --callgrind-out-file=/dev/null " LSPPING_PROGRAM
         " decode --records --hex '" +
         input + "' > /dev/null 2> '" + counted + "'";
      EXPECT_NE( std::system( command.c_str() ), -1 );
      std::ifstream lines( counted );
      for( std::string line; std::getline( lines, line ); ) {
         std::string const key = "Collected : ";
         if( std::size_t const at = line.find( key ); at != std::string::npos )
            return std::strtod( line.c_str() + at + key.size(), nullptr );
      }
      ADD_FAILURE() << "no instructions were counted: is valgrind installed?";
      return 0;
   }

   // How much more a message of twice as many costs than one of half as many, what any message
   // costs left aside.
   template < class Tlvs >
   double growth( std::size_t count, Tlvs tlvs ) const {
      double const any = instructions( "" );
      return ( instructions( tlvs( 2 * count ) ) - any ) / ( instructions( tlvs( count ) ) - any );
   }

 private:
   TemporaryFolder folder_;
};

TEST_F( Growth, isLinearThroughZerosThatAreNoPadding ) {
   EXPECT_LT( growth(
                 4096, []( std::size_t n ) { return repeated( "00000000", n ) + "01"; } ),
              2.05 );
}

TEST_F( Growth, isLinearThroughTlvsWithoutAlignment ) {
   EXPECT_LT( growth(
                 2048, []( std::size_t n ) { return repeated( "000c000100", n ); } ),
              2.05 );
}

TEST_F( Growth, isLinearThroughNestedTlvs ) {
   EXPECT_LT( growth(
                 512,
                 []( std::size_t n ) {
                    std::string nested = repeated( "000c000400000009", n );
                    for( int depth = 0; depth < 6; ++depth )
                       nested = "0009" + word( nested.size() / 2 ) + nested;
                    return nested;
                 } ),
              2.05 );
}

// Each pushes a FEC onto the stack that the record has.
TEST_F( Growth, isLinearThroughChangesOfTheFecStack ) {
   EXPECT_LT( growth(
                 100,
                 []( std::size_t n ) {
                    std::string const changes = repeated( "0003000c010008000010000400003000", n );
                    std::size_t const size = changes.size() / 2;
                    return "0014" + word( size + 16 ) + "05dc01000a0000020a0000010801" +
                           word( size ) + changes;
                 } ),
              2.05 );
}

} // namespace
