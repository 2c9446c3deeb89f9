       identification division.
       program-id. Mixed-Case.
       Data Division.
       working-storage section.
       01  Customer-Record.
           05  custName            pic x(5) value "AbC".
           05  AMOUNT Picture Is s9(3)v99 Usage Computational-3.
       procedure division.
