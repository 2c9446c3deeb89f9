       COPY PART REPLACING ==:TAG:== BY ==ORD== ==:N:== BY ==2==
           ==:NONE:== BY ====.
