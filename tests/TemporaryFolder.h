#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <system_error>

/// A folder that nobody else has, whoever runs the same test at the same time; it goes with the
/// test.
class TemporaryFolder {
 public:
   TemporaryFolder() {
      std::string path = testing::TempDir() + "lspping.XXXXXX";
      if( ::mkdtemp( path.data() ) == nullptr )
         throw std::system_error( errno, std::generic_category(), path );
      path_ = path;
   }
   TemporaryFolder( TemporaryFolder const & ) = delete;
   TemporaryFolder & operator=( TemporaryFolder const & ) = delete;
   ~TemporaryFolder() {
      std::error_code ignored;
      std::filesystem::remove_all( path_, ignored );
   }

   std::filesystem::path const & path() const { return path_; }

   /// Writes a file and gives its path.
   std::string file( std::string_view name, std::string_view contents ) const {
      std::string const path = path_ / name;
      std::ofstream( path, std::ios::binary ) << contents;
      return path;
   }

 private:
   std::filesystem::path path_;
};
