       COPY "one/OUTER" REPLACING ==:T:== BY ==X==.
