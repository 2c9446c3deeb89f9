           05  :P:-NAME            WIDE.
