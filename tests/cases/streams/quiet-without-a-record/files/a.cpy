Tallmere FDMORPH Version 1.0
Converts between COBOL data definitions and XML Schema

