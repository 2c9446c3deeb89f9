       01 book PIC X(80) identified by "book".

