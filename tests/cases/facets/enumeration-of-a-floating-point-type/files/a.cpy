       01 rate USAGE COMP-1 identified by "rate".
        88 enumerator-0 value is "1.5".
        88 enumerator-1 value is "2.5".

