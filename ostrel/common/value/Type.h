/// @file
/// The thirteen kinds of value that a field can have. The numbers are part of every stored value record.
#pragma once

namespace Ostrel::Common
{

/// The kind of value that a field, a value or a format has.
enum EnType : int
{
    TypeEmpty = 0,     ///< no value; also what is told of a field that does not exist
    TypeMfcString = 1, ///< CString
    TypeStlString = 2, ///< std::string
    TypeChar = 3,      ///< char, 8 bits with a sign
    TypeUChar = 4,     ///< unsigned char
    TypeShort = 5,     ///< short, 16 bits with a sign
    TypeUShort = 6,    ///< unsigned short
    TypeLong = 7,      ///< long, 32 bits with a sign
    TypeULong = 8,     ///< unsigned long, 32 bits
    TypeInt64 = 9,     ///< __int64
    TypeBool = 10,     ///< bool
    TypeFloat = 11,    ///< float
    TypeDouble = 12,   ///< double
    TypeObjectPtr = 13 ///< CDataObject*, never owned
};

} // namespace Ostrel::Common
