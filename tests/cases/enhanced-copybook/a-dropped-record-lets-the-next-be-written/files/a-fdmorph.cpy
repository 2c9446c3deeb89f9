        01 THREE identified by "THREE" count in THREE-count.
         02 C pic X(5) identified by "C" count in C-count.
