       01 doc identified by "doc" count in doc-count.
        02 book PIC X(80) identified by "book" count in book-count.
        02 novel PIC X(80) identified by "novel" count in novel-count.
        02 novel PIC X(80) identified by "novel" count in novel-count.
        02 last PIC S9(18) identified by "last" count in last-count.

