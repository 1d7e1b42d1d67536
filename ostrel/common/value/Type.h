// The thirteen kinds of value that a field can have. The numbers are part of every stored value record.
#pragma once

namespace Ostrel::Common
{

enum EnType : int
{
    TypeEmpty = 0,
    TypeMfcString = 1, ///< CString
    TypeStlString = 2, ///< std::string
    TypeChar = 3,
    TypeUChar = 4,
    TypeShort = 5,
    TypeUShort = 6,
    TypeLong = 7,  ///< long, 32 bits with a sign
    TypeULong = 8, ///< unsigned long, 32 bits
    TypeInt64 = 9, ///< __int64
    TypeBool = 10,
    TypeFloat = 11,
    TypeDouble = 12,
    TypeObjectPtr = 13 ///< CDataObject*, never owned
};

} // namespace Ostrel::Common
